"""There and back again."""

import numpy as np
from hypothesis import given, settings
from hypothesis import strategies as st

import pytest

import tessara

LATITUDES = st.floats(-79, 79)
LONGITUDES = st.floats(-179, 179)
METRES_PER_DEGREE = 111320.0


def metres_apart(one, other):
    north = (one[0] - other[0]) * METRES_PER_DEGREE
    east = (one[1] - other[1]) * METRES_PER_DEGREE * np.cos(np.radians(one[0]))
    return np.hypot(north, east)


# How far a position may come back from where it was: what the series of the projections are good for, and the last
# digit of systems that have one. Seconds above 59.999 carry into the minute, which is 31 mm along each axis.
@pytest.mark.parametrize("system, metres", [
    ("UTM", 1e-4), ("GK", 1e-4), ("GK6", 1e-4), ("GEOGRAD", 0.05), ("GEODEZMIN", 1e-4), ("ECEF", 1e-3), ("UTMREF", 1.5), ("GEOREF", 20.0),
])
@settings(max_examples=200, deadline=None)
@given(latitude=LATITUDES, longitude=LONGITUDES)
def test_positions_come_back(system, metres, latitude, longitude):
    there = tessara.convert(latitude, longitude, to=system)
    back = tessara.Conversion(system, "GEODEZ").fields(there)
    assert metres_apart((latitude, longitude), back) < metres


@settings(max_examples=200, deadline=None)
@given(LATITUDES, LONGITUDES, st.floats(0, 360), st.floats(1, 1e6))
def test_the_way_to_the_end_of_a_way_is_that_way(latitude, longitude, azimuth, metres):
    end = tessara.direct(latitude, longitude, azimuth, metres)
    way = tessara.distance(latitude, longitude, end.latitude, end.longitude)
    assert abs(way.distance - metres) < 1e-3
