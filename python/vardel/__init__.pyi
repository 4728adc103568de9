from os import PathLike
from typing import Literal, Protocol, Self, overload

import numpy as np
from numpy.typing import ArrayLike, NDArray

from vardel._ground import Contour as Contour
from vardel._ground import EffectiveHeights as EffectiveHeights
from vardel._ground import contour as contour
from vardel._ground import effective_heights as effective_heights

# A number is an ArrayLike, too, so that mypy finds overloads to overlap: the first that fits counts.
_Floats = NDArray[np.float64]
_Texts = str | list[str] | NDArray[np.str_]
_Model = Literal["itu529", "davidson", "cost231", "us"]

__version__: str
MODELS: tuple[str, str, str, str]

class _Loss(Protocol):
    @overload
    def __call__(  # type: ignore[misc]
        self,
        frequency: float,
        distance: float,
        base_height: float = 100.0,
        mobile_height: float = 1.5,
        area: str = "Urban",
        city: str = "Small/Medium",
        *,
        percent_time: float = 50.0,
        percent_locations: float = 50.0,
    ) -> float: ...
    @overload
    def __call__(
        self,
        frequency: ArrayLike,
        distance: ArrayLike,
        base_height: ArrayLike = 100.0,
        mobile_height: ArrayLike = 1.5,
        area: _Texts = "Urban",
        city: _Texts = "Small/Medium",
        *,
        percent_time: ArrayLike = 50.0,
        percent_locations: ArrayLike = 50.0,
    ) -> _Floats: ...

class _FieldStrength(Protocol):
    @overload
    def __call__(  # type: ignore[misc]
        self,
        frequency: float,
        distance: float,
        base_height: float = 100.0,
        mobile_height: float = 1.5,
        area: str = "Urban",
        city: str = "Small/Medium",
        *,
        percent_time: float = 50.0,
        percent_locations: float = 50.0,
        power: float = 1000.0,
    ) -> float: ...
    @overload
    def __call__(
        self,
        frequency: ArrayLike,
        distance: ArrayLike,
        base_height: ArrayLike = 100.0,
        mobile_height: ArrayLike = 1.5,
        area: _Texts = "Urban",
        city: _Texts = "Small/Medium",
        *,
        percent_time: ArrayLike = 50.0,
        percent_locations: ArrayLike = 50.0,
        power: ArrayLike = 1000.0,
    ) -> _Floats: ...

cost231_loss: _Loss
davidson_loss: _Loss
itu529_loss: _Loss
us_loss: _Loss
cost231_field_strength: _FieldStrength
davidson_field_strength: _FieldStrength
itu529_field_strength: _FieldStrength
us_field_strength: _FieldStrength

@overload
def in_range(  # type: ignore[misc]
    model: _Model,
    frequency: float,
    distance: float,
    base_height: float = 100.0,
    mobile_height: float = 1.5,
) -> bool: ...
@overload
def in_range(
    model: _Model,
    frequency: ArrayLike,
    distance: ArrayLike,
    base_height: ArrayLike = 100.0,
    mobile_height: ArrayLike = 1.5,
) -> NDArray[np.bool_]: ...

class Reach:
    @property
    def outcome(self) -> Literal["never", "ends", "everywhere", "late"]: ...
    @property
    def km(self) -> float: ...
    @property
    def in_range(self) -> bool: ...
    @property
    def served(self) -> list[tuple[float, float]]: ...

def reach(
    model: _Model,
    frequency: float,
    base_height: float = 100.0,
    mobile_height: float = 1.5,
    area: str = "Urban",
    city: str = "Small/Medium",
    *,
    loss: float | None = None,
    field_strength: float | None = None,
    power: float = 1000.0,
    percent_time: float = 50.0,
    percent_locations: float = 50.0,
) -> Reach: ...

_Unit = Literal["W", "kW", "dBm", "dBW"]

@overload
def to_watts(power: float, unit: _Unit) -> float: ...  # type: ignore[misc]
@overload
def to_watts(power: ArrayLike, unit: _Unit) -> _Floats: ...
@overload
def from_watts(watts: float, unit: _Unit) -> float: ...  # type: ignore[misc]
@overload
def from_watts(watts: ArrayLike, unit: _Unit) -> _Floats: ...
@overload
def field_strength_for_received_power(  # type: ignore[misc]
    received_power: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> float: ...
@overload
def field_strength_for_received_power(
    received_power: ArrayLike, frequency: ArrayLike, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> _Floats: ...
@overload
def received_power(  # type: ignore[misc]
    field_strength: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> float: ...
@overload
def received_power(
    field_strength: ArrayLike, frequency: ArrayLike, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> _Floats: ...

class ArchiveError(Exception): ...

class Run:
    @property
    def number(self) -> int: ...
    @property
    def model(self) -> str: ...
    @property
    def parameters(self) -> str: ...
    @property
    def comment(self) -> str: ...
    @property
    def time(self) -> str: ...
    @property
    def curve_count(self) -> int: ...
    @property
    def complete(self) -> bool: ...

class Curve:
    @property
    def legend(self) -> str: ...
    @property
    def distance(self) -> _Floats: ...
    @property
    def value(self) -> _Floats: ...
    @property
    def third(self) -> _Floats: ...

class Archive:
    def __init__(self, path: str | PathLike[str]) -> None: ...
    def __len__(self) -> int: ...
    def __enter__(self) -> Self: ...
    def __exit__(self, *args: object) -> None: ...
    def close(self) -> None: ...
    def runs(
        self,
        offset: int = 0,
        limit: int | None = None,
        *,
        order: Literal["number", "time", "comment", "parameters"] = "number",
        descending: bool = False,
    ) -> list[Run]: ...
    def run(self, number: int) -> Run | None: ...
    def curves(self, number: int) -> list[Curve]: ...
    def curves_without_run(self) -> list[int]: ...

class MeasuredTable:
    @property
    def frequency(self) -> float: ...
    @property
    def percent_time(self) -> float: ...
    @property
    def area(self) -> str: ...
    @property
    def mobile_height(self) -> float: ...
    @property
    def base_height(self) -> _Floats: ...
    @property
    def distance(self) -> _Floats: ...
    @property
    def field_strength(self) -> _Floats: ...

def read_measured(path: str | PathLike[str]) -> list[MeasuredTable]: ...
