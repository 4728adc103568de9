"""What the program writes of paths and stations: explanations, log lines, rings, measured fit."""

from __future__ import annotations

from collections.abc import Sequence
from datetime import datetime
from typing import Literal, NamedTuple

import numpy as np
from numpy.typing import NDArray

from vardel import _vardel
from vardel._models import Model
from vardel._planning import _goal

LOG_HEADS: str = _vardel.LOG_HEADS
"""The heads of the columns of log_line."""


class Term(NamedTuple):
    """One line of an explanation."""

    name: str
    formula: str
    value: float
    """The plain sum of the values that are no quantities, in their order, is the result. That of a
    subtracted term has its sign turned."""
    unit: str
    """'dB', 'm' or nothing."""
    source: str
    role: Literal["quantity", "added", "subtracted"]
    """A quantity is no summand; summands are made of it."""


def explain(
    model: Model, frequency: float, distance: float, base_height: float = 100.0,
    mobile_height: float = 1.5, area: str = "Urban", city: str = "Small/Medium", *,
    quantity: Literal["loss", "field_strength"] = "loss", percent_time: float = 50.0,
    percent_locations: float = 50.0, power: float = 1000.0,
) -> list[Term]:
    """The terms of a model's formula for one path, each with its value and its source."""
    if quantity not in ("loss", "field_strength"):
        raise ValueError(f"quantity is 'loss' or 'field_strength', not {quantity!r}")
    path = (frequency, distance, base_height, mobile_height, area, city,
            percent_time, percent_locations, power)
    return [Term(*term) for term in _vardel.explanation(model, path, quantity == "field_strength")]


def log_line(
    frequency: float, distance: float, base_height: float = 100.0, mobile_height: float = 1.5,
    area: str = "Urban", city: str = "Small/Medium", *, percent_time: float = 50.0,
    percent_locations: float = 50.0, power: float = 1000.0,
    units: Literal["metric", "english"] = "metric", time: datetime | None = None,
) -> str:
    """The report log's line of a calculation, with its line end; LOG_HEADS are its columns' heads.

    With english units the distance is in miles and heights are in feet. The time is now, unless one
    is given. A path beyond what the program calculates is a ValueError.
    """
    if units not in ("metric", "english"):
        raise ValueError(f"units is 'metric' or 'english', not {units!r}")
    at = datetime.now() if time is None else time
    path = (frequency, distance, base_height, mobile_height, area, city,
            percent_time, percent_locations, power)
    return _vardel.log_line(
        path, (at.year, at.month, at.day, at.hour, at.minute, at.second), units == "english")


def coverage_rings(
    latitude: float, longitude: float, frequency: float, base_height: float = 100.0,
    mobile_height: float = 1.5, area: str = "Urban", city: str = "Small/Medium", *,
    loss: float | None = None, field_strength: float | None = None, power: float = 1000.0,
    percent_time: float = 50.0, percent_locations: Sequence[float] = (50.0, 90.0, 95.0),
    format: Literal["geojson", "kml"] = "geojson",
) -> str:
    """The reach of a station as circles on the map: a GeoJSON or KML text.

    There is a polygon for each of the three models and each percentage of locations, with all
    inputs as its properties; none where the goal is met nowhere. Arguments are those of reach.
    """
    if format not in ("geojson", "kml"):
        raise ValueError(f"format is 'geojson' or 'kml', not {format!r}")
    wanted, quantity = _goal("coverage_rings", loss, field_strength)
    path = (frequency, 0.0, base_height, mobile_height, area, city, percent_time, 50.0, power)
    return _vardel.coverage_text(
        latitude, longitude, path, wanted, bool(quantity), list(percent_locations), format == "kml")


class FitStatistics(NamedTuple):
    """Of a model's errors at some points; rms² = mean² + deviation² (Recommendation ITU-R P.311)."""

    points: int
    mean: float
    """dB, as are the others; 0 without points."""
    deviation: float
    rms: float


class MeasuredFit(NamedTuple):
    """One model at one percentage of locations beside measured field strengths."""

    model: str
    percent_locations: float
    distance: NDArray[np.float64]
    """km"""
    measured: NDArray[np.float64]
    """dB(µV/m)"""
    predicted: NDArray[np.float64]
    """dB(µV/m)"""
    in_range: NDArray[np.bool_]
    """Whether the model covers the point."""
    statistics: FitStatistics
    """Of predicted minus measured, where the model covers the point."""
    bands: dict[float, FitStatistics]
    """The same by distance: from the key, in km, up to the next."""
    out_of_range: FitStatistics
    """Of the other points."""


def measured_fit(
    table: _vardel.MeasuredTable, column: int = 0, *, city: str = "Small/Medium",
    power: float = 1000.0, percent_locations: Sequence[float] = (50.0,),
) -> list[MeasuredFit]:
    """How well the three models predict a column of a table that read_measured gave.

    Frequency, heights, area and percentage of time are those of the table.
    """
    if not 0 <= column < len(table.base_height):
        raise IndexError("the table has no such column")
    path = (table.frequency, 0.0, table.base_height[column], table.mobile_height, table.area, city,
            table.percent_time, 50.0, power)
    fits = _vardel.fits(path, table, column, list(percent_locations))
    return [
        MeasuredFit(model, percentage, distance, measured, predicted, covered, FitStatistics(*all_covered),
                    {km: FitStatistics(*band) for km, band in zip(_vardel.FIT_BANDS, bands)},
                    FitStatistics(*others))
        for model, percentage, distance, measured, predicted, covered, all_covered, bands, others in fits]
