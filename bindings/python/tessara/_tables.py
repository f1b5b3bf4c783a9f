"""The tables of systems and datums."""

from __future__ import annotations

from typing import Any, NamedTuple

from . import _tessara


class System(NamedTuple):
    number: int
    name: str
    unit: str
    fields: tuple[str, ...]


class Datum(NamedTuple):
    number: int
    name: str
    ellipsoid: str
    a: float
    f: float
    dx: float
    dy: float
    dz: float


def _table(rows: list[Any]) -> Any:
    try:
        import pandas
    except ImportError:
        return rows
    return pandas.DataFrame(rows, columns=type(rows[0])._fields).set_index("name")


def systems(frame: bool = True) -> Any:
    """Returns the coordinate systems: number, name, unit, and the fields of a position. The result is a DataFrame
    indexed by name if pandas is installed; without pandas or with `frame=False`, it is a list of `System`.

    >>> systems(frame=False)[2]
    System(number=2, name='UTM', unit='metre', fields=('zone', 'hemisphere', 'easting', 'northing'))
    """
    rows = [System(*row) for row in _tessara.systems()]
    return _table(rows) if frame else rows


def datums(frame: bool = True) -> Any:
    """Returns the geodetic datums: number, name, ellipsoid, its semi-major axis `a` in metres and flattening `f`, and the
    translation to WGS84 in metres. The result is a DataFrame indexed by name if pandas is installed; without pandas or
    with `frame=False`, it is a list of `Datum`.

    >>> datums(frame=False)[2].a
    6378137.0
    """
    rows = [Datum(*row) for row in _tessara.datums()]
    return _table(rows) if frame else rows
