"""What the tests compare with: pyproj, the letters of military references, and the numbers of statuses."""

from functools import lru_cache

import pyproj

# The contract's numbers (tessara/kernel/koord_status.h).
OK = 1
GEODESIC_NO_SOLUTION = 0
ZONE_DISTANT = -3209
OUTSIDE = -3410
UTM_LAT = -3708
GEO_LAT = -3713
NORTH_HIGH = -3762

# NGA.STND.0037, chapter 3: the columns of squares repeat each three zones, the rows begin with F in even zones.
BANDS = "CDEFGHJKLMNPQRSTUVWX"
COLUMNS = ("STUVWXYZ", "ABCDEFGH", "JKLMNPQR")
ROWS = "ABCDEFGHJKLMNPQRSTUV"


@lru_cache(maxsize=None)
def _between(source, target):
    return pyproj.Transformer.from_crs(source, target)


def utm(latitude, longitude, zone):
    """Easting and northing of a position north of the equator."""
    return _between(4326, 32600 + zone).transform(latitude, longitude)


def military_reference(latitude, longitude, zone, digits=5, is_truncated=False):
    """The reference of a position north of the equator to so many digits: of the square that it lies in, or of the
    nearest corner of squares, in whose band the reference is then."""
    unit = 10 ** (5 - digits)
    easting, northing = ((int(metres // unit) if is_truncated else round(metres / unit)) * unit for metres in utm(latitude, longitude, zone))
    if not is_truncated:
        latitude = _between(32600 + zone, 4326).transform(easting, northing)[0]
    column = COLUMNS[zone % 3][easting // 100_000 - 1]
    row = ROWS[(northing // 100_000 + (5 if zone % 2 == 0 else 0)) % 20]
    square = [f"{metres % 100_000 // unit:0{digits}d}" if digits else "" for metres in (easting, northing)]
    return f"{zone}{BANDS[min(int(latitude + 80) // 8, 19)]}{column}{row}{''.join(square)}"
