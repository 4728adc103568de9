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
