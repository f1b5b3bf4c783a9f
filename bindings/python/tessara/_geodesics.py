"""Geodesics on the ellipsoid."""

from __future__ import annotations

from typing import Any

from . import _tessara
from ._arrays import broadcast, form_of, numbers
from ._conversion import Errors, check_errors, result_type

WAY = ("distance", "azimuth", "back_azimuth")
END = ("latitude", "longitude", "back_azimuth")


def _solve(solve: Any, name: str, fields: tuple[str, ...], given: dict[str, Any], datum: str, errors: Errors) -> Any:
    check_errors(errors)
    shape, arrays = broadcast(*(numbers(value, key) for key, value in given.items()))
    made = solve(shape, arrays, datum, errors)
    names = fields + (("status",) if errors == "status" else ())
    return tuple.__new__(result_type(name, names), map(form_of(given.values()), made))


def distance(lat1: Any, lon1: Any, lat2: Any, lon2: Any, *, datum: str = "WGS84", errors: Errors = "raise") -> Any:
    """Computes the length of the geodesic between two positions in metres, and its azimuths in degrees clockwise from
    north: at the first position toward the second, and at the second back toward the first.

    Arguments are numbers, arrays or Series of degrees. `errors` works as in `convert`.

    >>> distance(42.25, -71.116667, 45.516667, -123.683333, datum="NAD27")
    Way(distance=4164192..., azimuth=293.469..., back_azimuth=75.653...)
    """
    given = {"lat1": lat1, "lon1": lon1, "lat2": lat2, "lon2": lon2}
    return _solve(_tessara.inverse, "Way", WAY, given, datum, errors)


def direct(lat: Any, lon: Any, azimuth: Any, distance: Any, *, datum: str = "WGS84", errors: Errors = "raise") -> Any:
    """Computes the position at an azimuth in degrees and a distance in metres along the geodesic, and the azimuth back
    from there. The longitude is in -180..180. `errors` works as in `convert`.

    >>> round(direct(0.0, 0.0, 90.0, 111319.4908).longitude, 7)
    1.0
    """
    given = {"lat": lat, "lon": lon, "azimuth": azimuth, "distance": distance}
    return _solve(_tessara.direct, "End", END, given, datum, errors)
