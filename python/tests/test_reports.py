import json
from datetime import datetime

import pytest

import vardel


def test_explanation():
    terms = vardel.explain("itu529", 450, 10, 100)
    summands = [term.value for term in terms if term.role != "quantity"]
    assert sum(summands) == pytest.approx(143.129250, abs=5e-7)
    (base,) = [term for term in terms if term.name == "Base antenna"]
    assert base == ("Base antenna", "13.82 log hb", -27.64, "dB", "Hata 1980", "subtracted")
    field_strength = vardel.explain("itu529", 450, 10, quantity="field_strength", power=100)
    # By hand from Hata's formula, 49.305 dB(µV/m) of 1 kW.
    assert sum(term.value for term in field_strength if term.role != "quantity") == pytest.approx(39.305, abs=5e-5)


def test_log_line():
    at = datetime(2026, 3, 9, 14, 5, 6)
    line = vardel.log_line(450, 10, time=at)
    assert line.split() == ("10 450 100 1.5 Urban Small/Medium 143.13 140.42 143.13 49.31 49.3 52.01 50% 50% Metric 1000 "
                            "03/09/2026 02:05 pm").split()
    assert "Enlish" in vardel.log_line(450, 6.2, 330, 5, units="english", time=at)
    assert vardel.LOG_HEADS.split()[:3] == ["Dist", "Frq", "BaseH"]


def test_rings():
    rings = json.loads(vardel.coverage_rings(
        50, 7, 450, 60, area="Suburban", field_strength=32, power=25, percent_locations=[50]))["features"]
    assert [ring["properties"]["model"] for ring in rings] == ["ITU 529", "Davidson", "Cost 231"]
    # By hand from Hata's formula, and with 111.229 km a degree on the meridian.
    assert rings[0]["properties"]["distance_km"] == 14.21
    assert rings[0]["geometry"]["coordinates"][0][0] == pytest.approx([7, 50 + 14.2102 / 111.229], abs=1e-5)
    assert "<Polygon>" in vardel.coverage_rings(50, 7, 450, loss=140, format="kml")


# Hata's formula gives 49.305 dB(µV/m) at 10 km: errors of 4.305 dB and, at 1 km, of 1.105 dB.
def test_measured_fit(tmp_path):
    (tmp_path / "measured.csv").write_text("0,450,0.5,Urban,1.5,2,50,100\n1,70,80\n10,40,45\n")
    (table,) = vardel.read_measured(tmp_path / "measured.csv")
    fit = vardel.measured_fit(table, 1)[0]
    assert (fit.model, fit.percent_locations, fit.measured.tolist()) == ("itu529", 50, [80, 45])
    assert fit.predicted == pytest.approx([81.105, 49.305], abs=5e-5) and fit.in_range.all()
    assert fit.statistics == pytest.approx((2, 2.705, 1.6, 3.142774), abs=5e-5)
    assert (fit.bands[0.0].points, fit.bands[10.0].mean, fit.out_of_range.points) == (1, pytest.approx(4.305, abs=5e-5), 0)
    assert len(vardel.measured_fit(table, 0, percent_locations=[50, 90])) == 6


def test_wrong_arguments():
    for wrong, error in [
        (lambda: vardel.explain("itu529", 450, 10, quantity="power"), ValueError),
        (lambda: vardel.explain("itu", 450, 10), ValueError),
        (lambda: vardel.log_line(450, 301), ValueError),
        (lambda: vardel.log_line(450, 10, units="miles"), ValueError),
        (lambda: vardel.coverage_rings(91, 7, 450, loss=140), ValueError),
        (lambda: vardel.coverage_rings(50, 7, 450), TypeError),
    ]:
        with pytest.raises(error):
            wrong()
