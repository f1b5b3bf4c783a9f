"""Coordinate calculations: positions between coordinate systems and geodetic datums, arrays in and out.

>>> import tessara
>>> tessara.convert(48.1375, 11.5755)
UTM(zone=32, hemisphere='N', easting=691602.6597..., northing=5334791.1445...)

North comes before east everywhere. Degrees are positive north and east; grid values and heights are metres.
"""

from ._tessara import __version__ as __version__
from ._conversion import Conversion, convert
from ._errors import PositionError, status_text
from ._geodesics import direct, distance
from ._tables import Datum, System, datums, systems

__all__ = [
    "Conversion",
    "Datum",
    "PositionError",
    "System",
    "convert",
    "datums",
    "direct",
    "distance",
    "status_text",
    "systems",
]
