"""Areas: what a station gives at each pixel of a raster, as lazy as wanted."""

from __future__ import annotations

import importlib
import math
from collections.abc import Sequence
from typing import Any, Literal, NamedTuple

import numpy as np
from numpy.typing import NDArray

from vardel import _vardel
from vardel._ground import EffectiveHeights
from vardel._models import Model

_UNITS = {"field_strength": "dB(µV/m)", "received_power": "dBm", "loss": "dB"}


class _Pixels(NamedTuple):
    """Where the pixels of an area lie."""

    grid: str
    around: tuple[float, float]  # the place that the grid's coordinates are of
    columns: int
    rows: int
    transform: tuple[float, ...]  # x = t0 + column t1, y = t3 + row t5
    crs: str


class _Area(NamedTuple):
    """All that the extension needs for any part of an area."""

    pixels: _Pixels
    site: tuple[float, float]
    path: tuple[float, float, float, float, str, str, float, float, float]
    heights: tuple[float, ...]
    quantity: str
    antenna_gain: float
    cable_loss: float
    models: tuple[str, ...]
    farthest: float

    def bands(self, block_info: Any = None) -> NDArray[np.float64]:
        """Of the block that Dask asks for, or of all."""
        _, (row, to_row), (column, to_column) = (
            block_info[None]["array-location"] if block_info
            else (None, (0, self.pixels.rows), (0, self.pixels.columns)))
        return self.part(row, column, to_row - row, to_column - column)

    def part(self, row: int, column: int, rows: int, columns: int) -> NDArray[np.float64]:
        return _vardel.coverage_cells((*self.pixels[:5], *self[1:]), (row, column, rows, columns))


def coverage(
    latitude: float, longitude: float, frequency: float,
    base_height: float | EffectiveHeights = 100.0, mobile_height: float = 1.5,
    area: str = "Urban", city: str = "Small/Medium", *,
    radius: float | None = None, bounds: tuple[float, float, float, float] | None = None,
    resolution: float = 100.0, grid: Literal["site", "utm"] = "site", like: Any = None,
    quantity: Literal["field_strength", "received_power", "loss"] = "field_strength",
    models: Sequence[Model] = ("itu529", "davidson", "cost231"), power: float = 1000.0,
    percent_time: float = 50.0, percent_locations: float = 50.0,
    antenna_gain: float = 0.0, cable_loss: float = 0.0, chunks: int | None = 1024,
) -> Any:
    """What a station gives at each pixel of an area: an xarray.Dataset, lazy over Dask chunks.

    The Dataset has a variable for each model, one for whether the model covers the pixel
    ('itu529_in_range'), and 'effective_height' in m. x and y are the pixels' centres; the attribute
    crs is the coordinate system for PROJ. Each value has the bits of a single call with the pixel's
    distance and height. It is nan at the site itself, beyond the radius or 300 km, and where the
    height is not known.

    The area is a radius in km, or bounds in degrees (south, west, north, east). grid is 'site', an
    azimuthal equidistant one, or 'utm'; its pixels are resolution m wide. With like, another
    station's coverage, the pixels are those of that. base_height is in m, or what effective_heights
    gives, between whose azimuths heights go in proportion. The other arguments are those of
    itu529_field_strength, and antenna_gain in dBi and cable_loss in dB for a received power.

    A chunk is chunks pixels wide and high and is computed from the station alone, on whatever
    machine. With chunks=None all is computed at once, without Dask. Needs xarray.
    """
    site = (float(latitude), float(longitude))
    path = (frequency, 0.0, 1.0, mobile_height, area, city, percent_time, percent_locations, power)
    _check(frequency, mobile_height, percent_time, percent_locations, power, antenna_gain, cable_loss)
    if like is not None:
        pixels = _Pixels(*like.attrs["pixels"])
    else:
        pixels = _Pixels(grid, site, *_vardel.coverage_grid(
            grid, site, _positive(resolution, "resolution"), *_extent(radius, bounds)))
    of = _Area(pixels, site, path, _heights(base_height), quantity, antenna_gain, cable_loss,
               tuple(models), radius if radius is not None else 300.0)
    of.part(0, 0, 0, 0)  # what is wrong is wrong at once
    return _dataset(of, _bands(of, chunks))


def _check(*numbers: float) -> None:
    if not all(math.isfinite(number) for number in numbers):
        raise ValueError("coverage takes finite numbers")


def _positive(number: float, name: str) -> float:
    if not (math.isfinite(number) and number > 0):
        raise ValueError(f"{name} is above zero")
    return number


def _extent(
    radius: float | None, bounds: tuple[float, float, float, float] | None
) -> tuple[float, tuple[float, float, float, float] | None]:
    if (radius is None) == (bounds is None):
        raise TypeError("coverage takes either radius or bounds, or like")
    if bounds is None:
        if radius is None or not 0 < radius <= 300:
            raise ValueError("radius is above 0 and up to 300 km")
        return radius, None
    south, west, north, east = bounds
    if not (-90 <= south < north <= 90 and -180 <= west <= 180 and -180 <= east <= 180 and west != east):
        raise ValueError("bounds are south, west, north and east in degrees")
    return 0.0, (south, west, north, east)


def _heights(base_height: float | EffectiveHeights) -> tuple[float, ...]:
    if isinstance(base_height, EffectiveHeights):
        return tuple(base_height.effective_height.tolist())
    return (_positive(base_height, "base_height"),)


def _bands(of: _Area, chunks: int | None) -> Any:
    if chunks is None:
        return of.bands()
    array: Any = importlib.import_module("dask.array")
    shape = (2 * len(of.models) + 1, of.pixels.rows, of.pixels.columns)
    return array.map_blocks(
        of.bands, chunks=array.core.normalize_chunks((-1, chunks, chunks), shape),
        dtype=float, meta=np.empty((0, 0, 0)))


def _dataset(of: _Area, bands: Any) -> Any:
    xarray: Any = importlib.import_module("xarray")
    left, width, _, top, _, height = of.pixels.transform
    count = len(of.models)
    variables: dict[str, tuple[Any, ...]] = {}
    for i, model in enumerate(of.models):
        variables[model] = (("y", "x"), bands[i], {"units": _UNITS[of.quantity], "quantity": of.quantity})
        variables[f"{model}_in_range"] = (("y", "x"), bands[count + i] != 0)
    variables["effective_height"] = (("y", "x"), bands[2 * count], {"units": "m"})
    return xarray.Dataset(variables, coords={
        "y": top + (np.arange(of.pixels.rows) + 0.5) * height,
        "x": left + (np.arange(of.pixels.columns) + 0.5) * width,
    }, attrs={
        "crs": of.pixels.crs, "transform": (width, 0.0, left, 0.0, height, top), "pixels": tuple(of.pixels),
    })
