"""Arguments of every library that follows numpy's protocols, made ready for universal functions.

None of these libraries is imported: what an argument can do shows what it is.
"""

from __future__ import annotations

from typing import Any

import numpy as np
from numpy.typing import NDArray

from vardel import _vardel

_CODES = {"model": _vardel.model_codes, "area": _vardel.area_codes,
          "city": _vardel.city_codes, "unit": _vardel.unit_codes}


def apply(ufunc: np.ufunc, arguments: dict[str, Any], out: Any = None, where: Any = True) -> Any:
    """ufunc of the arguments, with the texts among them, known by their names, as codes."""
    lazy_column = next((value for value in arguments.values() if hasattr(value, "map_partitions")), None)
    if lazy_column is not None:  # of a dask.dataframe
        return lazy_column.map_partitions(
            _apply_to_partition, ufunc, list(arguments), *arguments.values(),
            meta=(None, ufunc.types[0][-1]))
    values = _with_one_index([
        _codes(value, name) if name in _CODES else float(value) if type(value) is int else value
        for name, value in arguments.items()])
    options = {} if out is None else {"out": out}
    if where is not True:
        options["where"] = where
    try:
        return ufunc(*values, **options)
    except TypeError:
        for name, value in arguments.items():
            if name not in _CODES:
                _check_numbers(value, name)
        raise


def _apply_to_partition(_: Any, ufunc: np.ufunc, names: list[str], *values: Any) -> Any:
    return apply(ufunc, dict(zip(names, values)))


def _check_numbers(value: Any, name: str) -> None:
    dtype = getattr(value, "dtype", None)
    if dtype is None:
        dtype = np.asarray(value).dtype
    if getattr(dtype, "kind", "f") not in "biuf":
        raise TypeError(f"{name} takes numbers, not {dtype}") from None


def _codes(texts: Any, name: str) -> Any:
    """The codes of texts as an array of the same library; that of a missing text is -1."""
    ufunc = _CODES[name]
    if isinstance(texts, str):
        return ufunc(texts)
    if texts is None:
        raise TypeError(f"{name} takes text, not None")
    if hasattr(texts, "dims") and hasattr(texts, "data"):  # an xarray.DataArray
        return texts.copy(data=_codes(texts.data, name))
    if hasattr(texts, "map_blocks"):  # a Dask array
        return texts.map_blocks(_codes, name, dtype="int8", meta=np.empty((0,) * texts.ndim, "int8"))
    if hasattr(texts, "cat"):  # a categorical Series
        return type(texts)(_category_codes(texts.array, ufunc), index=texts.index)
    if hasattr(texts, "categories"):  # a Categorical
        return _category_codes(texts, ufunc)
    if hasattr(texts, "reindex"):  # another Series
        return type(texts)(ufunc(texts.to_numpy(dtype=object)), index=texts.index)
    if isinstance(texts, np.ma.MaskedArray):
        mask = np.ma.getmaskarray(texts)  # type: ignore[no-untyped-call]
        return np.ma.array(ufunc(np.where(mask, np.array(None), texts.data)), mask=mask)  # type: ignore[no-untyped-call]
    return ufunc(np.asarray(texts))


def _category_codes(categorical: Any, ufunc: np.ufunc) -> NDArray[np.int8]:
    names = np.asarray(categorical.categories, dtype=object)
    codes = np.asarray(categorical.codes)
    try:
        places = ufunc(names)
    except ValueError:  # a category that is not used may have any name
        used = np.unique(codes)
        used = used[used >= 0]
        places = np.full(len(names), -1, np.int8)
        places[used] = ufunc(names[used])
    result: NDArray[np.int8] = np.append(places, np.int8(-1))[codes]  # -1 takes the last
    return result


def _with_one_index(values: list[Any]) -> list[Any]:
    """Several Series of pandas must have one index: it would align others by filling gaps."""
    series = [value for value in values if _is_series(value)]
    if len(series) < 2:
        return values
    first = series[0]
    if not all(other.index.equals(first.index) for other in series[1:]):
        raise ValueError("the Series have different indexes; align them first")
    return [value.to_numpy() if _is_series(value) and value is not first else value for value in values]


def _is_series(value: Any) -> bool:
    return hasattr(value, "reindex") and hasattr(value, "index") and not hasattr(value, "columns")
