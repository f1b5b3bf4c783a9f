"""Converts arguments to arrays of a common shape, and results to the type of the arguments."""

from __future__ import annotations

import sys
from collections.abc import Callable, Iterable
from typing import Any

import numpy as np
import numpy.typing as npt

NUMBER_KINDS = "fiub"
TEXT_KINDS = "US"


def is_series(value: object) -> bool:
    """Whether a value is a pandas Series; doesn't import pandas, because the caller of a Series has done so."""
    pandas = sys.modules.get("pandas")
    return pandas is not None and isinstance(value, pandas.Series)


def numbers(value: Any, name: str) -> npt.NDArray[np.float64]:
    """Converts a value to an array of doubles, without a copy if it is one. Missing values become NaN."""
    if is_series(value):
        value = value.to_numpy(dtype="float64", na_value=np.nan)
    if isinstance(value, np.ma.MaskedArray):
        value = np.ma.filled(value.astype(np.float64), np.nan)  # type: ignore[no-untyped-call]
    array = np.asarray(value)
    if array.dtype.kind == "O" and (value is None or any(isinstance(item, (str, bytes)) for item in array.flat)):
        raise TypeError(f"{name} must be numbers, not None or text")
    if array.dtype.kind not in NUMBER_KINDS + "O":
        raise TypeError(f"{name} must be numbers, not {array.dtype}")
    return array.astype(np.float64, copy=False)


def texts(value: Any, name: str, length: int) -> npt.NDArray[np.str_]:
    """Converts a value to an array of texts with at most `length` characters."""
    if is_series(value):
        value = value.to_numpy()
    array = np.asarray(value)
    if array.dtype.kind == "O" and all(isinstance(item, str) for item in array.flat):
        array = array.astype(np.str_)
    if array.dtype.kind not in TEXT_KINDS:
        raise TypeError(f"{name} must be text, not {array.dtype}")
    array = array.astype(np.str_)
    if array.size and int(np.char.str_len(array).max()) > length:
        raise ValueError(f"{name} must have at most {length} letter{'s' if length > 1 else ''}")
    return array.astype(f"=U{length}", copy=False)


def broadcast(*arrays: npt.NDArray[Any]) -> tuple[list[int], list[npt.NDArray[Any]]]:
    """Returns the common shape of arrays, and the arrays in that shape."""
    shape = np.broadcast_shapes(*(array.shape for array in arrays))
    return list(shape), [np.broadcast_to(array, shape) for array in arrays]


def form_of(values: Iterable[Any]) -> Callable[[npt.NDArray[Any]], Any]:
    """Returns the conversion of results: to a Series with the index of the first one in `values`, or else to a number."""
    for value in values:
        if is_series(value):
            series = type(value)
            index = value.index
            return lambda array: series(array, index=index)
    return lambda array: array if array.ndim else array.item()
