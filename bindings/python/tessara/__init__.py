"""Coordinate calculations: converts positions and arrays of positions between coordinate systems and geodetic datums.

>>> import tessara
>>> tessara.convert(48.1375, 11.5755)
UTM(zone=32, hemisphere='N', easting=691602.659..., northing=5334791.144...)

North comes before east everywhere. Degrees are positive north and east; grid values and heights are in metres.
"""

from ._tessara import __version__ as __version__
from ._areas import Extent, Overlay, densify, extent, overlay, point_in_polygon
from ._conversion import Conversion, convert
from ._errors import PositionError, TextError, status_text
from ._geodesics import direct, distance
from ._maps import Grid, Map
from ._references import to_pyproj
from ._tables import Datum, System, datums, systems
from ._texts import Check, Parsed, Texts, check, format, parse
from ._zones import convergence_and_scale, zones

__all__ = [
    "Check",
    "Conversion",
    "Datum",
    "Extent",
    "Grid",
    "Map",
    "Overlay",
    "Parsed",
    "PositionError",
    "System",
    "TextError",
    "Texts",
    "__version__",
    "check",
    "convergence_and_scale",
    "convert",
    "datums",
    "densify",
    "direct",
    "distance",
    "extent",
    "format",
    "overlay",
    "parse",
    "point_in_polygon",
    "status_text",
    "systems",
    "to_pyproj",
    "zones",
]
