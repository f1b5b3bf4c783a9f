"""Extents, polygons and lines on the earth."""

from __future__ import annotations

from typing import Any, NamedTuple

import numpy as np
import numpy.typing as npt

from . import _tessara
from ._arrays import broadcast, form_of, numbers
from ._conversion import WGS84_DEGREES, result_type, system_name

Line = npt.NDArray[np.float64]

RELATIONS = ("apart", "equal", "first inside", "second inside", "crossing", "touching")


class Extent(NamedTuple):
    """The outermost positions, each with the fields of the system."""

    north: Any
    east: Any
    south: Any
    west: Any


class Overlay(NamedTuple):
    """How two polygons lie to each other, and the parts that they cut each other into."""

    relation: str
    both: list[Line]
    only_first: list[Line]
    only_second: list[Line]
    neither: list[Line]


def degree_rows(line: Any, name: str) -> Line:
    """Rows of latitude and longitude: an array of two columns, a list of pairs, a frame of two columns."""
    rows = numbers(line, name)
    if rows.ndim != 2 or rows.shape[1] != 2:
        raise ValueError(f"{name} has to be rows of latitude and longitude, not an array of shape {rows.shape}")
    return rows


def extent_in(system: str, extremes: tuple[tuple[Any, ...], ...]) -> Extent:
    """The fields of four positions as an extent."""
    core = _tessara.Conversion(WGS84_DEGREES, system, None)
    made = result_type(system_name(core.to), core.target_fields)
    return Extent(*(tuple.__new__(made, values) for values in extremes))


def extent(line: Any, to: str = WGS84_DEGREES, *, datum: str = "WGS84") -> Extent:
    """How far a line or the outline of a polygon reaches in a system, its edges being straight in degrees.

    `line` is rows of latitude and longitude on `datum`. Of each of the four positions only the value in its own
    direction means something.

    >>> extent([(48.0, 11.0), (48.5, 12.0)]).north.latitude
    48.5
    """
    return extent_in(to, _tessara.extent(degree_rows(line, "line"), datum, to))


def densify(line: Any, straight_in: str, *, datum: str = "WGS84") -> Line:
    """The line as 33 points an edge, so that its edges look straight in a system. `line` and the result are rows of
    latitude and longitude on `datum`. A `Map` densifies to a fraction of a pixel.

    >>> densify([(48.0, 11.0), (48.0, 12.0)], "UTM").shape
    (33, 2)
    """
    return _tessara.densify(degree_rows(line, "line"), datum, straight_in)


def point_in_polygon(lat: Any, lon: Any, polygon: Any, *, datum: str = "WGS84") -> Any:
    """Whether positions lie inside a polygon or on its edges, which are straight in degrees.

    `lat` and `lon` are degrees, `polygon` is rows of latitude and longitude and closes by itself; all on one datum.

    >>> point_in_polygon([48.1, 49.1], 11.5, [(48, 11), (49, 11), (49, 12), (48, 12)])
    array([ True, False])
    """
    ring = degree_rows(polygon, "polygon")
    shape, (lats, lons) = broadcast(numbers(lat, "lat"), numbers(lon, "lon"))
    return form_of((lat, lon))(_tessara.point_in_polygon(shape, lats, lons, ring, datum))


def overlay(first: Any, second: Any, *, datum: str = "WGS84") -> Overlay:
    """How two polygons lie to each other: apart, equal, first inside, second inside, crossing or touching. Polygons that
    cross come with the parts that are in both, in one only, and in neither but closed in between them.

    Polygons are rows of latitude and longitude.

    >>> square = [(48, 11), (49, 11), (49, 12), (48, 12)]
    >>> overlay(square, [(48.5, 11.5), (49.5, 11.5), (49.5, 12.5), (48.5, 12.5)]).relation
    'crossing'
    """
    made = _tessara.overlay(degree_rows(first, "first"), degree_rows(second, "second"), datum)
    return Overlay(RELATIONS[made[0]], *made[1:])
