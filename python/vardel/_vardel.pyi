from collections.abc import Callable
from typing import Any

from numpy import float32, float64
from numpy.typing import NDArray

from vardel import reach as reach

# What the package takes from its extension and does not hand on.

_Floats = NDArray[float64]

def effective_height_arrays(
    elevation: NDArray[float32],
    to_map: list[float],
    project: Callable[[_Floats, _Floats], tuple[Any, Any]] | None,
    latitude: float,
    longitude: float,
    antenna: float,
    ground: float | None,
    definition: str,
    bounds: tuple[float, float] | None,
    azimuths: int,
    /,
) -> tuple[_Floats, _Floats, _Floats, _Floats, _Floats, float]: ...
def outline(
    latitude: float, longitude: float, km: list[float], /
) -> list[list[tuple[float, float]]]: ...
