"""The models: a function for the path loss and one for the field strength of each."""

from __future__ import annotations

from typing import Any, Literal, Protocol, TypeAlias, overload

import numpy as np

from vardel import _vardel
from vardel._arrays import apply

Numbers: TypeAlias = Any
"""A number, a list of them, or an array of any library that follows numpy's protocols."""
Texts: TypeAlias = Any
"""A text, or texts in the same way: of objects, strings or categories."""
Model: TypeAlias = Literal["itu529", "davidson", "cost231", "us"]


class PathLoss(Protocol):
    """A function for the path loss in dB by one model."""

    __name__: str

    @overload
    def __call__(
        self, frequency: float, distance: float, base_height: float = 100.0,
        mobile_height: float = 1.5, area: str = "Urban", city: str = "Small/Medium", *,
        percent_time: float = 50.0, percent_locations: float = 50.0,
    ) -> float: ...
    @overload
    def __call__(
        self, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
        mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
        percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
        out: Any = None, where: Any = True,
    ) -> Any: ...


class FieldStrength(Protocol):
    """A function for the field strength in dB(µV/m) by one model."""

    __name__: str

    @overload
    def __call__(
        self, frequency: float, distance: float, base_height: float = 100.0,
        mobile_height: float = 1.5, area: str = "Urban", city: str = "Small/Medium", *,
        percent_time: float = 50.0, percent_locations: float = 50.0, power: float = 1000.0,
    ) -> float: ...
    @overload
    def __call__(
        self, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
        mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
        percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0, power: Numbers = 1000.0,
        out: Any = None, where: Any = True,
    ) -> Any: ...


_PATH = """\
    frequency          MHz
    distance           km
    base_height        m, effective height of the base antenna
    mobile_height      m, height of the mobile antenna
    area               'Urban', 'Suburban' or 'Open', in any case
    city               'Small/Medium' or 'Large'
    percent_time       % of time, clipped to 1 to 99
    percent_locations  % of locations, clipped to 1 to 99, in whole percents
"""
_POWER = """\
    power              W e.r.p.
"""
_RULES = """
Each argument is a number (area and city: a text) or an array, combined by numpy's rules of
broadcasting. Numbers give a float. Arrays give an array of their own kind: numpy and masked arrays,
pandas Series, xarray DataArrays, and Dask arrays and columns, which stay lazy. out and where are
those of every numpy ufunc.

Frequency, distance and heights must be above zero: otherwise, and for nan or a missing text, the
result is nan or infinite. Where in_range is False the result is an extrapolation. A text that is no
area or city is a ValueError.
"""
_SOURCES = {
    "itu529": ("ITU-R P.529", """\
ITU-R Recommendation P.529-3 (1999), "Prediction methods for the terrestrial land mobile service in
the VHF and UHF bands"."""),
    "davidson": ("Okumura-Hata-Davidson", """\
M. Hata, "Empirical Formula for Propagation Loss in Land Mobile Radio Services", IEEE Transactions on
Vehicular Technology VT-29 (1980); the Davidson corrections as published in TIA/EIA TSB-88-A (1999)."""),
    "cost231": ("COST 231", """\
COST Action 231, "Digital Mobile Radio towards Future Generation Systems", Final Report, EUR 18957
(1999), chapter 4."""),
    "us": ("the US variant", """\
K. Bullington, "Radio Propagation at Frequencies above 30 Megacycles", Proceedings of the IRE 35
(1947); area terms by Hata 1980."""),
}


def _named(function: Any, name: str, what: str, arguments: str) -> Any:
    """The function as one that stands in the package by itself, which is how it is pickled."""
    title, source = _SOURCES[name.partition("_")[0]]
    function.__name__ = function.__qualname__ = name
    function.__module__ = "vardel"
    function.__doc__ = f"{what} by {title}.\n\n{arguments}{_RULES}\nSource: {source}\n"
    return function


def _loss(model: str) -> PathLoss:
    name = f"{model}_loss"
    ufunc = getattr(_vardel, name)
    of_one = getattr(_vardel, f"{name}_of_one")

    def loss(
        frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
        mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
        percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
        out: Any = None, where: Any = True,
    ) -> Any:
        if out is None and where is True:
            value = of_one(frequency, distance, base_height, mobile_height, area, city,
                           percent_time, percent_locations)
            if value is not None:
                return value
        return apply(ufunc, {
            "frequency": frequency, "distance": distance, "base_height": base_height,
            "mobile_height": mobile_height, "area": area, "city": city,
            "percent_time": percent_time, "percent_locations": percent_locations}, out, where)

    function: PathLoss = _named(loss, name, "Path loss in dB", _PATH)
    return function


def _field_strength(model: str) -> FieldStrength:
    name = f"{model}_field_strength"
    ufunc = getattr(_vardel, name)
    of_one = getattr(_vardel, f"{name}_of_one")

    def field_strength(
        frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
        mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
        percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0, power: Numbers = 1000.0,
        out: Any = None, where: Any = True,
    ) -> Any:
        if out is None and where is True:
            value = of_one(frequency, distance, base_height, mobile_height, area, city,
                           percent_time, percent_locations, power)
            if value is not None:
                return value
        return apply(ufunc, {
            "frequency": frequency, "distance": distance, "base_height": base_height,
            "mobile_height": mobile_height, "area": area, "city": city,
            "percent_time": percent_time, "percent_locations": percent_locations,
            "power": power}, out, where)

    function: FieldStrength = _named(
        field_strength, name, "Field strength in dB(µV/m)", _PATH + _POWER)
    return function


itu529_loss = _loss("itu529")
davidson_loss = _loss("davidson")
cost231_loss = _loss("cost231")
us_loss = _loss("us")
itu529_field_strength = _field_strength("itu529")
davidson_field_strength = _field_strength("davidson")
cost231_field_strength = _field_strength("cost231")
us_field_strength = _field_strength("us")


@overload
def in_range(
    model: Model, frequency: float, distance: float, base_height: float = 100.0,
    mobile_height: float = 1.5,
) -> bool: ...
@overload
def in_range(
    model: Texts, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
    mobile_height: Numbers = 1.5,
) -> Any: ...
def in_range(
    model: Texts, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
    mobile_height: Numbers = 1.5,
) -> Any:
    """Whether a model covers a path: a bool, or an array of them.

    model is 'itu529', 'davidson', 'cost231' or 'us'; the other arguments are in MHz, km, m and m.
    Each may be an array, as for itu529_loss. The bounds count as inside, nan as outside.
    """
    covered = apply(_vardel.in_range, {
        "model": model, "frequency": frequency, "distance": distance,
        "base_height": base_height, "mobile_height": mobile_height})
    return bool(covered) if isinstance(covered, np.bool_) else covered
