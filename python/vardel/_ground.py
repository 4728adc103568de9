"""Effective antenna heights from elevations, and contours with them."""

from __future__ import annotations

import math
from collections.abc import Callable
from typing import Any, NamedTuple

import numpy as np
from numpy.typing import NDArray

from vardel import _vardel
from vardel._planning import reach

_Floats = NDArray[np.float64]


class EffectiveHeights(NamedTuple):
    """The effective heights of an antenna by azimuth, as effective_heights gives them.

    Heights are in m; those of an azimuth of which nothing was seen are nan.
    """

    azimuth: _Floats
    """Degrees from true north over east, equally spaced from 0."""
    average_terrain: _Floats
    """Above sea level, of the points whose elevation is known."""
    above_average: _Floats
    """The antenna's height above that."""
    effective_height: _Floats
    """The same, but at least the definition's floor."""
    seen: _Floats
    """0 to 1, the share of the points whose elevation is known."""
    ground: float
    """Above sea level, at the site."""
    latitude: float
    longitude: float


class Contour(NamedTuple):
    """How far a station reaches in each direction, as contour gives it."""

    azimuth: _Floats
    distance: _Floats
    """km; 0 where the goal is met nowhere, nan where nothing of the ground was seen."""
    outcome: list[str]
    """As in Reach, and 'unseen'."""
    in_range: NDArray[np.bool_]
    """Whether the model covers that distance and height."""
    polygons: list[list[tuple[float, float]]]
    """Rings of longitude and latitude, closed; more than one where the antimeridian parts it, or
    where the goal is not met in some direction."""


def _six_numbers(transform: Any) -> list[float]:
    """x = t0 + column t1 + row t2, y = t3 + column t4 + row t5, of an affine transform."""
    if all(hasattr(transform, name) for name in "abcdef"):
        a, b, c, d, e, f = (float(getattr(transform, name)) for name in "abcdef")
    else:
        a, b, c, d, e, f = (float(number) for number in list(transform)[:6])
    return [c, a, b, f, d, e]


def _spacing(coordinates: Any, name: str) -> tuple[float, float]:
    """Where the first cell begins, and how wide each is."""
    values = np.asarray(coordinates, dtype=float)
    if values.ndim != 1 or len(values) < 2:
        raise ValueError(f"the coordinate {name} is a line of two or more numbers")
    step = (values[-1] - values[0]) / (len(values) - 1)
    if step == 0 or not np.allclose(np.diff(values), step, rtol=1e-3, atol=0):
        raise ValueError(f"the coordinate {name} is not equally spaced")
    return float(values[0] - step / 2), float(step)


def _raster(elevation: Any, transform: Any, nodata: float | None) -> tuple[Any, list[float]]:
    if transform is None:
        if not hasattr(elevation, "dims"):
            raise TypeError("an array without coordinates needs its transform")
        y, x = elevation.dims[-2:]
        first_x, step_x = _spacing(elevation[x], x)
        first_y, step_y = _spacing(elevation[y], y)
        six = [first_x, step_x, 0.0, first_y, 0.0, step_y]
        if nodata is None:
            nodata = elevation.attrs.get("_FillValue")
        elevation = elevation.values
    else:
        six = _six_numbers(transform)
    if isinstance(elevation, np.ma.MaskedArray):
        elevation = np.where(np.ma.getmaskarray(elevation), np.nan, elevation.data)  # type: ignore[no-untyped-call]
    values = np.asarray(elevation, dtype=np.float32)
    while values.ndim > 2 and values.shape[0] == 1:  # one band
        values = values[0]
    if nodata is not None and not math.isnan(nodata):
        values = np.where(values == np.float32(nodata), np.float32(np.nan), values)
    return values, six


def effective_heights(
    elevation: Any,
    transform: Any = None,
    *,
    latitude: float,
    longitude: float,
    antenna: float,
    ground: float | None = None,
    definition: str | tuple[float, float] = "3-16",
    azimuths: int = 36,
    nodata: float | None = None,
    project: Callable[[_Floats, _Floats], tuple[Any, Any]] | None = None,
) -> EffectiveHeights:
    """The effective heights of a base antenna in each direction, from elevations in m.

    elevation must be an array of rows and columns with its affine transform, as rasterio gives them, or
    an xarray.DataArray with coordinates, as rioxarray does. Its coordinates are longitude and
    latitude, unless project turns arrays of these into its x and y, such as the transform of a
    pyproj.Transformer with always_xy.

    The site is in degrees, antenna in m above the ground, whose height above sea level is ground,
    or that of the elevations. definition says where the average is taken: '3-16' (47 CFR 24.53),
    '3-15' (Hata, ITU-R P.529), '3.2-16.1' (Davidson, TSB-88), 'p1546' (ITU-R P.1546), or two
    bounds in km. nan, nodata and what is masked is not known.

    Raises ValueError for wrong numbers, and where the site's ground or all around it is not known.
    """
    values, six = _raster(elevation, transform, nodata)
    bounds = None if isinstance(definition, str) else (float(definition[0]), float(definition[1]))
    arrays = _vardel.effective_height_arrays(
        values, six, project, latitude, longitude, antenna, ground,
        definition if isinstance(definition, str) else "", bounds, azimuths)
    return EffectiveHeights(*arrays, latitude, longitude)


def contour(heights: EffectiveHeights, model: Any, frequency: float, **path: Any) -> Contour:
    """How far a station reaches in each direction with the effective height that it has there.

    The other arguments are those of reach but for base_height: mobile_height, area, city, loss or
    field_strength, power, percent_time and percent_locations.
    """
    if "base_height" in path:
        raise TypeError("contour takes the base heights from its first argument")
    known: dict[float, Any] = {}  # floors make many alike
    reaches: list[Any] = []
    for height in heights.effective_height.tolist():
        if math.isnan(height):
            reaches.append(None)
            continue
        if height not in known:
            known[height] = reach(model, frequency, height, **path)
        reaches.append(known[height])
    distance = np.array([math.nan if one is None else one.km for one in reaches])
    return Contour(
        heights.azimuth, distance,
        ["unseen" if one is None else one.outcome for one in reaches],
        np.array([one is not None and one.in_range for one in reaches]),
        _vardel.outline(heights.latitude, heights.longitude, np.nan_to_num(distance).tolist()))
