from typing import Literal, Protocol, overload

import numpy as np
from numpy.typing import ArrayLike, NDArray

_Floats = NDArray[np.float64]
_Texts = str | list[str] | NDArray[np.str_]
_Model = Literal["itu529", "davidson", "cost231", "us"]

__version__: str
MODELS: tuple[str, str, str, str]

class _Loss(Protocol):
    @overload
    def __call__(
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
    def __call__(
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
def in_range(
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
def to_watts(power: float, unit: _Unit) -> float: ...
@overload
def to_watts(power: ArrayLike, unit: _Unit) -> _Floats: ...
@overload
def from_watts(watts: float, unit: _Unit) -> float: ...
@overload
def from_watts(watts: ArrayLike, unit: _Unit) -> _Floats: ...
@overload
def field_strength_for_received_power(
    received_power: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> float: ...
@overload
def field_strength_for_received_power(
    received_power: ArrayLike, frequency: ArrayLike, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> _Floats: ...
@overload
def received_power(
    field_strength: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> float: ...
@overload
def received_power(
    field_strength: ArrayLike, frequency: ArrayLike, antenna_gain: float = 0.0, cable_loss: float = 0.0
) -> _Floats: ...
