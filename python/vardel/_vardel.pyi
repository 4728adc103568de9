from collections.abc import Callable
from os import PathLike
from typing import Any, Literal, Self

from numpy import bool_, float32, float64, ufunc
from numpy.typing import NDArray

# The extension: the universal functions with codes for texts, what works on one path, and files.

_Floats = NDArray[float64]
_Path = tuple[float, float, float, float, str, str, float, float, float]
_Statistics = tuple[int, float, float, float]

__version__: str
MODELS: tuple[str, str, str, str]
OUTCOMES: list[str]
LOG_HEADS: str
FIT_BANDS: list[float]

area_codes: ufunc
city_codes: ufunc
model_codes: ufunc
unit_codes: ufunc
in_range: ufunc
reach_km: ufunc
reach_outcome: ufunc
base_height_m: ufunc
power_w: ufunc
to_watts: ufunc
from_watts: ufunc
field_strength_for_received_power: ufunc
received_power: ufunc

def reach_of_one(
    model: str, path: _Path, value: float, is_field_strength: bool, /
) -> tuple[Literal["never", "ends", "everywhere", "late"], float, bool, list[tuple[float, float]]]: ...
def explanation(
    model: str, path: _Path, is_field_strength: bool, /
) -> list[tuple[str, str, float, str, str, Literal["quantity", "added", "subtracted"]]]: ...
def log_line(path: _Path, time: tuple[int, int, int, int, int, int], english: bool, /) -> str: ...
def coverage_text(
    latitude: float, longitude: float, path: _Path, wanted: float, is_field_strength: bool,
    percentages: list[float], kml: bool, /
) -> str: ...
def fits(
    path: _Path, table: MeasuredTable, column: int, percentages: list[float], /
) -> list[tuple[str, float, _Floats, _Floats, _Floats, NDArray[bool_],
                _Statistics, list[_Statistics], _Statistics]]: ...
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
def coverage_grid(
    grid: str, site: tuple[float, float], metres: float, radius: float,
    bounds: tuple[float, float, float, float] | None, /
) -> tuple[int, int, tuple[float, ...], str]: ...
def coverage_cells(area: tuple[Any, ...], rectangle: tuple[int, int, int, int], /) -> _Floats: ...
def outline(
    latitude: float, longitude: float, km: list[float], /
) -> list[list[tuple[float, float]]]: ...

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
