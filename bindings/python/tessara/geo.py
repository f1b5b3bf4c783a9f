"""Positions and lines of GeoPandas. Its points have the longitude first."""

from __future__ import annotations

from typing import Any

import geopandas as gpd
import numpy as np
import pandas as pd
from shapely.geometry import LineString

from ._conversion import Errors, convert
from ._maps import Map
from ._texts import format
from ._zones import zones

DEGREES = "EPSG:4326"
BORDER_STEP = 1.0  # degrees


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


def _series(lines: list[Any], names: list[str]) -> gpd.GeoSeries:
    return gpd.GeoSeries([LineString(line[:, ::-1]) for line in lines], index=names, crs=DEGREES)


def grid_lines(sheet: Map, system: str, step: float, north_step: float | None = None) -> gpd.GeoSeries:
    """Returns the lines of a coordinate grid over the window of a map as LineStrings in WGS84 degrees. The index is
    `east` or `north`, the axis whose value is constant along the line."""
    grid = sheet.grid(system, step, north_step)
    names = ["east"] * len(grid.east_lines) + ["north"] * len(grid.north_lines)
    return _series([*grid.east_lines, *grid.north_lines], names)


def zone_borders(south: float, west: float, north: float, east: float, system: str = "UTM") -> gpd.GeoSeries:
    """Returns the western borders of the zones in a window of degrees, as LineStrings in WGS84 degrees, indexed by the
    number of the zone."""
    if not (-80.0 <= south < north <= 80.0 and -180.0 <= west < east <= 180.0):
        raise ValueError("the window must be within latitudes -80..80 and longitudes -180..180, with south below north")
    across = np.arange(west, east, BORDER_STEP / 2)
    found = zones(np.full_like(across, (south + north) / 2), across, system, errors="nan")
    up = np.append(np.arange(south, north, BORDER_STEP), north)
    lines, names = [], []
    for number in dict.fromkeys(found.zone[found.zone != 0].tolist()):
        border = float(found.west[found.zone == number][0])
        if west <= border <= east:
            lines.append(np.column_stack([up, np.full_like(up, border)]))
            names.append(number)
    return _series(lines, names)
