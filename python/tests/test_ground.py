import numpy as np
import pytest

import vardel

# Ground of 100 m with a plateau of 200 m from 7 degrees east on; cells of 0.01 degrees.
STEP = np.where(np.arange(200) < 100, 100, 200) * np.ones((200, 1))
TO_MAP = (0.01, 0, 6, 0, -0.01, 51)
SITE = {"latitude": 50, "longitude": 7, "antenna": 50, "ground": 150, "azimuths": 8}


def test_heights_of_an_array():
    heights = vardel.effective_heights(STEP, TO_MAP, **SITE)
    assert heights.azimuth.tolist() == [0, 45, 90, 135, 180, 225, 270, 315]
    assert heights.average_terrain[[0, 2, 6]] == pytest.approx([150, 200, 100])
    assert heights.above_average[[2, 6]] == pytest.approx([0, 100])
    assert heights.effective_height[[2, 6]] == pytest.approx([30, 100]) and heights.seen.all()
    assert vardel.effective_heights(STEP, TO_MAP, **{**SITE, "ground": None}).ground == 150
    own = vardel.effective_heights(STEP, TO_MAP, **SITE, definition=(1, 2))
    assert own.effective_height[2] == 20
    west = vardel.effective_heights(
        np.ma.masked_equal(STEP, 200), TO_MAP, **SITE, project=lambda x, y: (x, y))
    for unknown in (west, vardel.effective_heights(STEP, TO_MAP, **SITE, nodata=200)):
        assert np.isnan(unknown.effective_height[2]) and unknown.seen[[2, 6]].tolist() == [0, 1]


def test_heights_of_labelled_arrays():
    xarray = pytest.importorskip("xarray")
    labelled = xarray.DataArray(
        STEP[None], dims=("band", "y", "x"),
        coords={"y": 50.995 - 0.01 * np.arange(200), "x": 6.005 + 0.01 * np.arange(200)})
    heights = vardel.effective_heights(labelled, **SITE)
    assert heights.average_terrain[[2, 6]] == pytest.approx([200, 100])
    crooked = labelled.assign_coords(x=np.arange(200.0) ** 2)
    with pytest.raises(ValueError, match="x is not equally spaced"):
        vardel.effective_heights(crooked, **SITE)


# Distances by hand from Hata's formula for base heights of 100 and 30 m.
def test_contour():
    heights = vardel.effective_heights(STEP, TO_MAP, **SITE)
    contour = vardel.contour(heights, "itu529", 450, loss=140)
    assert contour.distance[[2, 6]] == pytest.approx([4.062475, 7.972525], abs=2e-6)
    assert contour.outcome == ["ends"] * 8 and contour.in_range.all()
    (ring,) = contour.polygons
    assert ring[0] == ring[-1] and len(ring) == 9
    # 7.9725 km west on the parallel of 50 degrees, of which a degree is 71.696 km long.
    assert min(x for x, _ in ring) == pytest.approx(7 - 7.972525 / 71.696, abs=2e-5)
    part = vardel.contour(heights._replace(effective_height=np.array([np.nan] * 2 + [50] * 6)),
                          "itu529", 450, loss=140)
    assert part.outcome[:3] == ["unseen", "unseen", "ends"] and np.isnan(part.distance[0])


@pytest.mark.parametrize("wrong, message", [
    ({"antenna": 0}, "above zero"), ({"azimuths": 7}, "8 to 3600"),
    ({"definition": "2-9"}, "p1546"), ({"definition": (5, 4)}, "nearer first"),
    ({"latitude": 91}, "not a place"), ({"longitude": 40, "ground": None}, "outside the elevation"),
    ({"project": lambda x, y: (x[:1], y[:1])}, "as many x and y")])
def test_what_is_wrong_is_told(wrong, message):
    with pytest.raises(ValueError, match=message):
        vardel.effective_heights(STEP, TO_MAP, **{**SITE, **wrong})
    with pytest.raises(TypeError, match="transform"):
        vardel.effective_heights(STEP, **SITE)
    with pytest.raises(TypeError, match="base heights"):
        vardel.contour(vardel.effective_heights(STEP, TO_MAP, **SITE), "us", 450, base_height=3)
