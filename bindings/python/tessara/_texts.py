"""Reads and writes texts of positions."""

from __future__ import annotations

from typing import Any, NamedTuple

import numpy as np

from . import _tessara
from ._arrays import broadcast, form_of, is_series, numbers
from ._conversion import WGS84_DEGREES, Errors, check_errors, system_name
from ._errors import TextError

AUTO = "auto"
METRE_DIGITS = 5


class Parsed(NamedTuple):
    """The positions of texts in degrees, and the systems of the texts."""

    latitude: Any
    longitude: Any
    system: Any


class Check(NamedTuple):
    """The result of `check`: whether a text is a position, and otherwise the piece in error and the reason. `code` is a
    word that is stable between versions; `meanings` has the meanings of the text, several for an ambiguous text."""

    good: bool
    code: str
    reason: str
    piece: str
    begin: int
    end: int
    meanings: list[str]


class Texts(NamedTuple):
    """The texts of positions: north and east."""

    north: Any
    east: Any


def _pieces(text: str, begin: int, end: int) -> tuple[int, int]:
    """Converts a range of bytes of a text to a range of characters."""
    encoded = text.encode("utf-8", "replace")
    return len(encoded[:begin].decode("utf-8", "ignore")), len(encoded[:end].decode("utf-8", "ignore"))


def _clean(text: str) -> str:
    return text.encode("utf-8", "replace").decode("utf-8")


def _error(texts: list[str], fault: tuple[int, str, str, int, int], index: Any) -> TextError:
    place, code, reason, begin, end = fault
    first, last = _pieces(texts[place], begin, end)
    return TextError(code, reason, texts[place][first:last], first, index)


def parse(texts: Any, system: str = AUTO, *, datum: str = "WGS84", errors: Errors = "raise") -> Parsed:
    """Reads texts as positions: latitudes and longitudes in degrees on `datum`, and the system of each text.

    Each text is one typed position: degrees in any notation, military references, UTM, or, with `system`, texts of that
    system, north before east. A text that isn't a position raises TextError with the piece in error; with errors="nan"
    it gives NaN and the system "".

    >>> parse("32UPU9160334791").system
    'UTMREF'
    >>> parse(["48 8 15 N 11 34 31.8 E", "32U PU 916 348"]).latitude.round(2)
    array([48.14, 48.14])
    """
    check_errors(errors)
    form = form_of([texts])
    given = texts.to_numpy() if is_series(texts) else texts
    array = np.asarray(given, dtype=object)
    flat = array.ravel().tolist()
    for text in flat:
        if not isinstance(text, str):
            raise TypeError(f"texts must be str, not {type(text).__name__}")
    flat = [_clean(text) for text in flat]
    latitudes, longitudes, systems, faults = _tessara.parse(flat, system, datum)
    if faults and errors == "raise":
        index = None if array.ndim == 0 else np.unravel_index(faults[0][0], array.shape)
        place = None if index is None else int(index[0]) if array.ndim == 1 else tuple(map(int, index))
        raise _error(flat, faults[0], place)
    names = np.array(systems, dtype=np.str_)
    return Parsed(*(form(column.reshape(array.shape)) for column in (latitudes, longitudes, names)))


def check(text: str, system: str = AUTO, *, datum: str = "WGS84") -> Check:
    """Checks whether a text is a position; otherwise returns the piece in error and the reason.

    >>> check("48 8 15 N 11 34 31.8 E").good
    True
    >>> wrong = check("32U PU 916 3")
    >>> wrong.good, wrong.piece
    (False, ...)
    """
    if not isinstance(text, str):
        raise TypeError(f"text must be str, not {type(text).__name__}")
    text = _clean(text)
    faults = _tessara.parse([text], system, datum)[3]
    meanings = _tessara.meanings(text, system, datum)
    if not faults:
        return Check(True, "", "", "", 0, 0, meanings)
    _, code, reason, begin, end = faults[0]
    first, last = _pieces(text, begin, end)
    return Check(False, code, reason, text[first:last], first, last, meanings)


def format(
    north: Any,
    east: Any,
    *,
    from_: str = WGS84_DEGREES,
    to: str = "UTMREF@WGS84",
    zone: int | None = None,
    precision: float | None = None,
    display: bool = False,
    truncate: bool = False,
    errors: Errors = "raise",
) -> Any:
    """Writes positions as texts that can be read back.

    `precision` is the unit of the last digit, in units of the system: 0.001 for millimetres. A military reference is a
    single text with a precision of 1, 10, 100 ... 100000 metres. It names the square with the nearest corner or, with
    `truncate`, the square that contains the position. Other systems have a north and an east text; `display` selects
    display texts. With errors="nan", a position without a result has empty texts.

    >>> format(48.1375, 11.5755)
    '32UPU9160334791'
    >>> format(48.1375, 11.5755, precision=100)
    '32UPU916348'
    >>> format([48.1375], [11.5755], to="GEOGRAD", display=True).north[0]
    "48°08'15.000''N"
    """
    check_errors(errors)
    if errors == "status":
        raise ValueError("texts have no statuses; errors must be raise or nan")
    shape, (norths, easts) = broadcast(numbers(north, "north"), numbers(east, "east"))
    digits = None
    if system_name(to).upper() == "UTMREF" and not display:
        digits = _digits(1.0 if precision is None else precision)
    if precision is not None and not precision > 0:
        raise ValueError("precision must be above 0")
    made = _tessara.format(shape, norths, easts, from_, to, zone, display, precision, digits, truncate, errors)
    form = form_of((north, east))

    def shaped(texts: Any) -> Any:
        return form(np.asarray(texts, dtype=np.str_).reshape(shape))

    return Texts(*map(shaped, made)) if isinstance(made, tuple) else shaped(made)


def _digits(precision: float) -> int:
    for digits in range(METRE_DIGITS + 1):
        if precision == 10.0 ** (METRE_DIGITS - digits):
            return digits
    raise ValueError("the precision of military references must be 1, 10, 100, 1000, 10000 or 100000 metres")
