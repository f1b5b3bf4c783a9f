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
    """The relation of two polygons, and the parts into which they divide each other."""

    relation: str
    both: list[Line]
    only_first: list[Line]
    only_second: list[Line]
    neither: list[Line]


def degree_rows(line: Any, name: str) -> Line:
    """Converts an array of two columns, a list of pairs or a frame of two columns to rows of latitude and longitude."""
    rows = numbers(line, name)
    if rows.ndim != 2 or rows.shape[1] != 2:
        raise ValueError(f"{name} must be rows of latitude and longitude, not an array of shape {rows.shape}")
    return rows


def extent_in(system: str, extremes: tuple[tuple[Any, ...], ...]) -> Extent:
    """The fields of four positions as an extent."""
    core = _tessara.Conversion(WGS84_DEGREES, system, None)
    made = result_type(system_name(core.to), core.target_fields)
    return Extent(*(tuple.__new__(made, values) for values in extremes))


def extent(line: Any, to: str = WGS84_DEGREES, *, datum: str = "WGS84") -> Extent:
    """Returns the extent of a line or an outline of a polygon in a system. The edges are straight in degrees.

    `line` is rows of latitude and longitude on `datum`. In each of the four positions, only the value in its own
    direction is significant.

    >>> extent([(48.0, 11.0), (48.5, 12.0)]).north.latitude
    48.5
    """
    return extent_in(to, _tessara.extent(degree_rows(line, "line"), datum, to))


def densify(line: Any, straight_in: str, *, datum: str = "WGS84") -> Line:
    """Divides each edge of a line into 32 pieces, so that it can be drawn straight in a system. `line` and the result
    are rows of latitude and longitude on `datum`. `Map.densify` divides lines to a fraction of a pixel.

    >>> densify([(48.0, 11.0), (48.0, 12.0)], "UTM").shape
    (33, 2)
    """
    return _tessara.densify(degree_rows(line, "line"), datum, straight_in)


def point_in_polygon(lat: Any, lon: Any, polygon: Any, *, datum: str = "WGS84") -> Any:
    """Checks whether positions are inside a polygon or on its edges, which are straight in degrees.

    `lat` and `lon` are in degrees, `polygon` is rows of latitude and longitude, all on `datum`. The last vertex of the
    polygon is joined to the first.

    >>> point_in_polygon([48.1, 49.1], 11.5, [(48, 11), (49, 11), (49, 12), (48, 12)])
    array([ True, False])
    """
    ring = degree_rows(polygon, "polygon")
    shape, (lats, lons) = broadcast(numbers(lat, "lat"), numbers(lon, "lon"))
    return form_of((lat, lon))(_tessara.point_in_polygon(shape, lats, lons, ring, datum))


def overlay(first: Any, second: Any, *, datum: str = "WGS84") -> Overlay:
    """Returns the relation of two polygons: apart, equal, first inside, second inside, crossing or touching. For crossing
    polygons, the result also has the parts in both, in one only, and enclosed between them without being in either.

    Polygons are rows of latitude and longitude.

    >>> square = [(48, 11), (49, 11), (49, 12), (48, 12)]
    >>> overlay(square, [(48.5, 11.5), (49.5, 11.5), (49.5, 12.5), (48.5, 12.5)]).relation
    'crossing'
    """
    made = _tessara.overlay(degree_rows(first, "first"), degree_rows(second, "second"), datum)
    return Overlay(RELATIONS[made[0]], *made[1:])
