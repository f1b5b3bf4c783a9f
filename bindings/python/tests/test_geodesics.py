"""Geodesics beside those of pyproj, and zones."""

import numpy as np
import peers
import pyproj
import pytest

import tessara


def test_distances_are_those_of_pyproj(rng):
    places = rng.uniform((-80, -179, -80, -120), (80, 179, 80, 120), (1000, 4))
    places[:, 3] = places[:, 1] + rng.uniform(-100, 100, 1000)  # away from the antipode
    there, back, metres = pyproj.Geod(ellps="WGS84").inv(places[:, 1], places[:, 0], places[:, 3], places[:, 2])
    way = tessara.distance(*places.T)
    assert np.allclose(way.distance, metres, rtol=0, atol=1e-3)
    assert np.allclose(np.cos(np.radians(way.azimuth - there)), 1)
    assert np.allclose(np.cos(np.radians(way.back_azimuth - back)), 1)


def test_ends_are_those_of_pyproj(rng):
    latitudes, longitudes, azimuths, metres = rng.uniform((-80, -179, 0, 1), (80, 179, 360, 5e6), (1000, 4)).T
    east, north, _ = pyproj.Geod(ellps="bessel").fwd(longitudes, latitudes, azimuths, metres)
    end = tessara.direct(latitudes, longitudes, azimuths, metres, datum="GER")
    assert np.allclose(end.latitude, north, rtol=0, atol=1e-8)
    assert np.allclose(np.cos(np.radians(end.longitude - east)), 1, rtol=0, atol=1e-15)
    assert (np.abs(end.longitude) <= 180).all()


def test_what_is_no_place_has_a_status():
    with pytest.raises(tessara.PositionError) as raised:
        tessara.distance([0, 91], 0, 0, 0)
    assert (raised.value.index, raised.value.status) == (1, peers.GEO_LAT)
    assert np.isnan(tessara.distance([np.nan, 0], 0, 0, 0, errors="nan").distance).tolist() == [True, False]
    assert tessara.direct(0, 0, np.inf, [1.0], errors="status").status.tolist() == [peers.GEODESIC_NO_SOLUTION]
    with pytest.raises(ValueError, match="unknown datum"):
        tessara.distance(0, 0, 0, 0, datum="WGS85")


def test_zones_have_their_borders():
    found = tessara.zones([48.1, -33.9], [11.5, 18.4])
    assert found.zone.tolist() == [32, 34]
    # A zone z has the meridian 6z - 183 and reaches 3 degrees to both sides; a border is drawn 1e-9 degrees beside.
    assert np.allclose(found.centre, [9, 21], rtol=0, atol=1e-7)
    assert np.allclose(found.west, [6, 18], rtol=0, atol=1e-7)
    assert np.allclose(found.east, [12, 24], rtol=0, atol=1e-7)
    # The meridian of strip 4 is 12 degrees east.
    assert tessara.zones(48.1, 11.5, "GK", datum="GER").zone == 4
    with pytest.raises(ValueError, match="no zones"):
        tessara.zones(48.1, 11.5, "GEODEZ")
    assert tessara.zones([48.1, 95], 11.5, errors="status").status.tolist() == [peers.OK, peers.NORTH_HIGH]


def test_convergence_and_scale_are_those_of_pyproj(rng):
    latitudes = rng.uniform(-79, 83, 500)
    longitudes = rng.uniform(6.001, 11.999, 500)
    ours = tessara.convergence_and_scale(latitudes, longitudes)
    theirs = pyproj.Proj("EPSG:32632").get_factors(longitudes, latitudes)
    assert np.allclose(ours.convergence, theirs.meridian_convergence, rtol=0, atol=1e-7)
    assert np.allclose(ours.scale, theirs.meridional_scale, rtol=0, atol=1e-7)
    with pytest.raises(ValueError, match="conformal"):
        tessara.convergence_and_scale(48, 11, "GEODEZ")
    assert tessara.convergence_and_scale([48, 95], 11, errors="status").status.tolist() == [peers.OK, peers.NORTH_HIGH]
