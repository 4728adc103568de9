import math

import numpy as np
import pytest

import vardel

TOWN = {"frequency": 390, "base_height": 45, "area": "Suburban", "percent_locations": 95}


# Of the same computation of the published formulas as those in tests/engine.
def test_reach():
    reach = vardel.reach("davidson", field_strength=32, power=25, **TOWN)
    assert (reach.outcome, reach.in_range) == ("ends", True)
    assert reach.km == pytest.approx(5.192173, abs=2e-6)
    assert not vardel.reach("cost231", field_strength=32, power=25, **TOWN).in_range
    again = vardel.reach("davidson", 35, 20, loss=165)
    assert np.ravel(again.served) == pytest.approx([0.1, 73.43536, 216.88576, 300], abs=1e-3)
    never = vardel.reach("itu529", field_strength=91, power=25, **TOWN)
    assert (never.outcome, never.km, never.served) == ("never", 0.0, [])
    assert vardel.reach("itu529", loss=20, **{**TOWN, "base_height": 1e8}).outcome == "late"
    for wrong, error in [({}, TypeError), ({"loss": 1, "field_strength": 1}, TypeError),
                         ({"loss": math.nan}, ValueError), ({"loss": 100, "city": "x"}, ValueError)]:
        with pytest.raises(error):
            vardel.reach("itu529", 450, **wrong)


def test_goals_over_arrays():
    km, outcomes = vardel.reach(["davidson", "itu529"], field_strength=[[32], [91]], power=25, outcome=True, **TOWN)
    assert km[0, 0] == pytest.approx(5.192173, abs=2e-6) and np.isnan(km[1]).all()
    assert [vardel.OUTCOMES[code] for code in outcomes[:, 1]] == ["ends", "never"]
    assert np.isnan(vardel.reach("us", [450, -1], loss=140)).tolist() == [False, True]
    # By hand from Hata's formula: a mast of 100 m gives 143.129250 dB and 49.305 dB(µV/m) at 10 km.
    heights = vardel.base_height_for("itu529", 450, [10, 0.1, 300], loss=143.129250)
    assert heights[:2] == pytest.approx([100, 20], abs=1e-3) and np.isnan(heights[2])
    watts = vardel.power_for("itu529", [450, 450, 0], 10, field_strength=[49.305, 39.305, 30])
    assert watts[:2] == pytest.approx([1000, 100], rel=1e-5) and np.isnan(watts[2])


def test_powers():
    for power, unit, watts in [(25, "W", 25), (1.5, "kW", 1500), (60, "dBm", 1000), (-10, "dBW", 0.1)]:
        assert vardel.to_watts([power], unit) == pytest.approx([watts])
        assert vardel.from_watts(watts, unit) == pytest.approx(power)
    with pytest.raises(ValueError, match="unit is W, kW, dBm or dBW, not 'MW'"):
        vardel.to_watts(1, "MW")
    assert vardel.field_strength_for_received_power(-100, 450, 2.15, 3) == pytest.approx(31.11425, abs=1e-5)
    assert vardel.received_power([31.11425], 450, 2.15, 3) == pytest.approx([-100], abs=1e-5)
