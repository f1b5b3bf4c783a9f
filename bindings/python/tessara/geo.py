"""Positions and lines of GeoPandas. Its points have the longitude first."""

from __future__ import annotations

from typing import Any

import geopandas as gpd
import pandas as pd
from shapely.geometry import LineString

from . import _tessara
from ._conversion import Errors, convert
from ._maps import Map
from ._texts import format

DEGREES = "EPSG:4326"


def references(points: gpd.GeoSeries, *, precision: float = 1.0, errors: Errors = "nan") -> pd.Series:
    """Returns the military references of points with a precision in metres and the index of the series. A point without a
    reference, for example north of 84 degrees, has an empty text.

    >>> from shapely.geometry import Point
    >>> references(gpd.GeoSeries([Point(11.5755, 48.1375)], crs=4326))[0]
    '32UPU9160334791'
    """
    degrees = points if points.crs is None else points.to_crs(DEGREES)
    return format(degrees.y, degrees.x, precision=precision, errors=errors)


def convert_points(points: gpd.GeoSeries, to: str, *, zone: int | None = None, errors: Errors = "nan") -> pd.DataFrame:
    """Converts points to another system and returns its fields with the index of the series. Points of another reference
    system than WGS84 degrees are converted to WGS84 degrees first.

    >>> from shapely.geometry import Point
    >>> convert_points(gpd.GeoSeries([Point(11.5755, 48.1375)], crs=4326), "UTMREF").square[0]
    'PU'
    """
    degrees = points if points.crs is None else points.to_crs(DEGREES)
    result = convert(degrees.y, degrees.x, to=to, zone=zone, errors=errors)
    return pd.DataFrame(result._asdict(), index=points.index)


def _series(lines: list[Any], names: list[Any]) -> gpd.GeoSeries:
    return gpd.GeoSeries([LineString(line[:, ::-1]) for line in lines], index=names, crs=DEGREES)


def grid_lines(sheet: Map, system: str, step: float, north_step: float | None = None) -> gpd.GeoSeries:
    """Returns the lines of a coordinate grid over the window of a map as LineStrings in WGS84 degrees. The index is
    `east` or `north`, the axis whose value is constant along the line."""
    grid = sheet.grid(system, step, north_step)
    names = ["east"] * len(grid.east_lines) + ["north"] * len(grid.north_lines)
    return _series([*grid.east_lines, *grid.north_lines], names)


def zone_borders(south: float, west: float, north: float, east: float, system: str = "UTM") -> gpd.GeoSeries:
    """Returns the western borders of the zones in a window of WGS84 degrees, as LineStrings in WGS84 degrees, indexed by the
    number of the zone. A window whose western longitude is greater than its eastern one crosses the date line, and the
    longitudes of its lines continue beyond 180 degrees. Raises ValueError for a window that isn't one and for a system
    without zones.

    >>> zone_borders(40, 2, 50, 20).bounds.minx.round(6).to_dict()
    {32: 6.0, 33: 12.0, 34: 18.0}
    """
    borders = [(zone, part) for _, zone, parts in _tessara.zone_borders(south, west, north, east, system)
               if zone is not None for part in parts]
    return _series([part for _, part in borders], [zone for zone, _ in borders])
