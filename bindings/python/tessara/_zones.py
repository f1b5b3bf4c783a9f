"""The zones of zoned systems."""

from __future__ import annotations

from typing import Any

from . import _tessara
from ._arrays import broadcast, form_of, numbers
from ._conversion import Errors, check_errors, result_type

ZONE = ("zone", "centre", "west", "east")


def zones(lat: Any, lon: Any, system: str = "UTM", *, datum: str = "WGS84", errors: Errors = "raise") -> Any:
    """Returns the natural zones of positions: the number, and the longitudes of the central line and of both borders at
    the latitude of the position, in degrees. The system is UTM, UTMREF, GK, GK6, BMN, OEM or GK-AT.

    >>> found = zones(48.1375, 11.5755)
    >>> found.zone, round(found.centre, 6), round(found.west, 6), round(found.east, 6)
    (32, 9.0, 6.0, 12.0)
    """
    check_errors(errors)
    shape, (lats, lons) = broadcast(numbers(lat, "lat"), numbers(lon, "lon"))
    made = _tessara.zones(shape, lats, lons, datum, system, errors)
    names = ZONE + (("status",) if errors == "status" else ())
    return tuple.__new__(result_type("Zone", names), map(form_of((lat, lon)), made))


def convergence_and_scale(
    lat: Any, lon: Any, system: str = "UTM", *, datum: str = "WGS84", zone: int | None = None, errors: Errors = "raise"
) -> Any:
    """Computes the factors of a conformal grid at positions: the convergence in degrees, which is the azimuth of grid
    north, and the scale, which is the length of a short line in the grid divided by its length on the ellipsoid. The
    grids are UTM, UTMREF, UPS, Gauss-Krueger and the national grids. `zone` is the wanted zone, strip or meridian.

    >>> factors = convergence_and_scale(48.1375, 9.0)
    >>> round(factors.convergence, 6), round(factors.scale, 6)
    (0.0, 0.9996)
    """
    check_errors(errors)
    shape, (lats, lons) = broadcast(numbers(lat, "lat"), numbers(lon, "lon"))
    made = _tessara.grid_factors(shape, lats, lons, datum, system, zone, errors)
    names = ("convergence", "scale") + (("status",) if errors == "status" else ())
    return tuple.__new__(result_type("Factors", names), map(form_of((lat, lon)), made))
