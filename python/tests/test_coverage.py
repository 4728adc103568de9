import numpy as np
import pytest

import vardel

pytest.importorskip("xarray")
SITE = {"latitude": 49.8, "longitude": 6.1, "frequency": 450}


# By hand from Hata's formula: 143.129250 dB at 10 km and 31.8 dB a decade.
def test_a_pixel_has_the_value_of_its_path():
    area = vardel.coverage(**SITE, radius=30, resolution=2000, quantity="loss", chunks=None)
    pixel = area.sel(x=3000, y=-3000)
    assert float(pixel.itu529) == pytest.approx(131.288083, abs=5e-6) and float(pixel.effective_height) == 100
    assert bool(pixel.itu529_in_range) and not bool(pixel.cost231_in_range)
    assert area.sizes == {"y": 30, "x": 30} and area.itu529.units == "dB"
    assert np.isnan(area.itu529.sel(x=29000, y=29000)) and not area.itu529_in_range.sel(x=29000, y=29000)
    km = np.sqrt(area.x * area.x + area.y * area.y) * 0.001
    losses = vardel.itu529_loss(450, km, 100).where(km <= 30)
    assert np.array_equal(losses.transpose("y", "x"), area.itu529, equal_nan=True)


def test_heights_by_azimuth():
    # 60 m north, 30 m elsewhere; to the north-northeast half way to the east.
    metres = np.array([60.0, 30, 30, 30])
    heights = vardel.EffectiveHeights(*[metres] * 5, 0.0, 49.8, 6.1)
    area = vardel.coverage(**SITE, base_height=heights, radius=9, resolution=2000, chunks=None)
    assert float(area.effective_height.sel(x=5000, y=5000)) == pytest.approx(45)
    assert float(area.effective_height.sel(x=5000, y=-5000)) == 30


@pytest.mark.parametrize("grid", ["site", "utm"])
def test_lazy_chunks_have_the_same_bytes(grid):
    pytest.importorskip("dask.array")
    lazy = vardel.coverage(**SITE, radius=8, grid=grid, chunks=50)
    whole = vardel.coverage(**SITE, radius=8, grid=grid, chunks=None)
    assert lazy.itu529.chunks[0][0] == 50
    for name in whole:
        assert lazy[name].values.tobytes() == whole[name].values.tobytes(), name


def test_another_station_on_the_same_pixels():
    first = vardel.coverage(**SITE, bounds=(49.6, 5.9, 50, 6.3), grid="utm", resolution=500, chunks=None)
    assert first.crs == "EPSG:32632"
    other = vardel.coverage(49.7, 6.0, 450, like=first, chunks=None)
    assert other.x.equals(first.x) and other.crs == first.crs
    rows = [int(station.itu529.max("x").argmax("y")) for station in (first, other)]
    # 0.1 degrees of latitude are 11.1 km.
    assert float(first.y[rows[0]] - first.y[rows[1]]) == pytest.approx(11_100, abs=600)


@pytest.mark.parametrize("wrong, message", [
    ({"radius": 0}, "up to 300"), ({"radius": 10, "resolution": 0}, "above zero"),
    ({"radius": 10, "latitude": 91}, "not a place"), ({"bounds": (50, 6, 49, 7)}, "south, west"),
    ({"radius": 200, "resolution": 1}, "at most 100000"), ({"radius": 10, "area": "Sea"}, "not 'Sea'"),
    ({"radius": 10, "models": ["itu529"] * 4}, "one to three"), ({"radius": 10, "models": ["us"]}, "models is"), ({"radius": 10, "power": np.nan}, "finite"),
    ({"radius": 10, "base_height": -1}, "above zero"), ({"radius": 10, "quantity": "power"}, "quantity is")])
def test_wrong_arguments(wrong, message):
    with pytest.raises(ValueError, match=message):
        vardel.coverage(**{**SITE, **wrong})
