"""Conversions beside pyproj and published coordinates."""

import pickle

import numpy as np
import pandas as pd
import peers
import pyproj
import pytest

import tessara

MILLIMETRE = 1e-3


def test_utm_is_that_of_pyproj(rng):
    latitudes = rng.uniform(-79, 83, 1000)
    longitudes = rng.uniform(6.001, 11.999, 1000)
    result = tessara.convert(latitudes, longitudes, to="UTM")
    northern = pyproj.Transformer.from_crs(4326, 32632).transform(latitudes, longitudes)
    southern = pyproj.Transformer.from_crs(4326, 32732).transform(latitudes, longitudes)
    assert (result.zone == 32).all()
    assert (result.hemisphere == np.where(latitudes >= 0, "N", "S")).all()
    assert np.allclose(result.easting, northern[0], rtol=0, atol=MILLIMETRE)
    assert np.allclose(result.northing, np.where(latitudes >= 0, northern[1], southern[1]), rtol=0, atol=MILLIMETRE)


@pytest.mark.parametrize("system, code", [("UPS", 5041)])
def test_polar_grid_is_that_of_pyproj(rng, system, code):
    latitudes = rng.uniform(84, 90, 500)
    longitudes = rng.uniform(-180, 180, 500)
    result = tessara.convert(latitudes, longitudes, to=system)
    east, north = pyproj.Transformer.from_crs(4326, code, always_xy=True).transform(longitudes, latitudes)
    assert np.allclose(result.easting, east, rtol=0, atol=MILLIMETRE)
    assert np.allclose(result.northing, north, rtol=0, atol=MILLIMETRE)


def test_heights_go_into_earth_centred_positions_and_come_back(rng):
    latitudes = rng.uniform(-89, 89, 500)
    longitudes = rng.uniform(-180, 180, 500)
    heights = rng.uniform(-100, 9000, 500)
    there = tessara.convert(latitudes, longitudes, heights, to="ECEF")
    x, y, z = pyproj.Transformer.from_crs(4979, 4978).transform(latitudes, longitudes, heights)
    assert np.allclose(there, (x, y, z), rtol=0, atol=MILLIMETRE)
    back = tessara.Conversion("ECEF", "GEODEZ").fields(there)
    assert np.allclose(back.latitude, latitudes, rtol=0, atol=1e-8)  # a millimetre
    assert np.allclose(back.height, heights, rtol=0, atol=MILLIMETRE)


def test_a_height_is_handed_on():
    assert tessara.convert(48.1375, 11.5755, 520.0).height == 520.0
    assert tessara.convert([48.1375], 11.5755, 520).height.tolist() == [520.0]


# Federal Office of Topography swisstopo, "Formulas and constants", the example of the approximate formulas: a position
# on CH1903 whose grid values are whole.
def test_the_origin_of_the_swiss_grid_is_bern():
    result = tessara.convert(46 + 57 / 60 + 8.66 / 3600, 7 + 26 / 60 + 22.50 / 3600, from_="GEODEZ@CH1903", to="CH@CH1903")
    assert result.easting == pytest.approx(600000, abs=MILLIMETRE)
    assert result.northing == pytest.approx(200000, abs=MILLIMETRE)


def test_a_wanted_zone_counts(rng):
    latitudes = rng.uniform(40, 60, 100)
    longitudes = rng.uniform(12.001, 14, 100)
    result = tessara.convert(latitudes, longitudes, zone=32)
    east, north = pyproj.Transformer.from_crs(4326, 32632).transform(latitudes, longitudes)
    assert (result.zone == 32).all()
    assert np.allclose(result.easting, east, rtol=0, atol=MILLIMETRE)
    assert np.allclose(result.northing, north, rtol=0, atol=MILLIMETRE)


def test_free_projections_have_parameters(rng):
    latitudes = rng.uniform(40, 60, 100)
    longitudes = rng.uniform(8, 10, 100)
    result = tessara.convert(latitudes, longitudes, to="TM:lon0=9,k=0.9996,fe=500000")
    east, north = pyproj.Transformer.from_crs(4326, 32632).transform(latitudes, longitudes)
    assert np.allclose(result.easting, east, rtol=0, atol=MILLIMETRE)
    assert np.allclose(result.northing, north, rtol=0, atol=MILLIMETRE)


def test_strips_and_meridians_are_wanted_like_zones():
    # In strip 4, whose meridian is 12: the position lies west of it.
    assert 4_000_000 < tessara.convert(48.1375, 10.4, from_="GEODEZ@GER", to="GK@GER", zone=4).easting < 4_500_000
    assert tessara.convert(47.5, 13.0, from_="GEODEZ@MGI", to="BMN@MGI", zone=34).meridian == 34
    with pytest.raises(ValueError, match="zone 1..60"):
        tessara.convert(1.0, 2.0, zone=61)


def test_utm_positions_are_read_with_their_zones():
    zones = np.array([31, 32, 33])
    result = tessara.convert(5334791.0, 691602.0, from_="UTM", from_zone=zones, to="GEODEZ")
    for zone, latitude, longitude in zip(zones, *result):
        expected = pyproj.Transformer.from_crs(32600 + int(zone), 4326).transform(691602.0, 5334791.0)
        assert (latitude, longitude) == pytest.approx(expected, abs=1e-9)
    southern = tessara.convert(5334791.0, 691602.0, from_="UTM", from_zone=32, from_hemisphere="S", to="GEODEZ")
    assert southern.latitude < 0


@pytest.mark.parametrize("system", ["UTM", "UTMREF", "GK", "GK6", "GEOGRAD", "GEODEZMIN", "GEOREF", "ECEF", "UPS", "VDG", "TM", "GEODEZ"])
def test_arrays_and_single_positions_agree_bit_for_bit(rng, system):
    latitudes = rng.uniform(84, 90, 300) if system == "UPS" else rng.uniform(-79, 79, 300)
    longitudes = rng.uniform(-20, 19, 300)
    conversion = tessara.Conversion("GEODEZ", system)
    columns = conversion(latitudes, longitudes)
    for i, (latitude, longitude) in enumerate(zip(latitudes.tolist(), longitudes.tolist())):
        single = conversion(latitude, longitude)
        assert single == tuple(column[i] for column in columns)
    heights = np.full(300, 123.0)
    raised = conversion(latitudes, longitudes, heights)
    assert conversion(float(latitudes[7]), float(longitudes[7]), 123.0) == tuple(column[7] for column in raised)


def test_shapes_broadcast():
    result = tessara.convert(np.array([[48.0], [49.0]]), np.array([11.0, 12.0, 13.0]))
    assert result.easting.shape == (2, 3)
    assert result.easting[1, 2] == tessara.convert(49.0, 13.0).easting
    assert tessara.convert(np.float64(48.0), 11).zone == 32
    assert isinstance(tessara.convert(np.array(48.0), 11).easting, float)


def test_series_keep_their_index():
    index = pd.Index(["a", "b"], name="town")
    result = tessara.convert(pd.Series([48.1375, 52.5], index=index), pd.Series([11.5755, 13.4], index=index))
    assert isinstance(result.easting, pd.Series)
    assert result.easting.index.equals(index)
    assert result.zone.tolist() == [32, 33]


def test_missing_values_of_series_are_positions_without_a_result():
    result = tessara.convert(pd.Series([48.0, None], dtype="Float64"), 11.0, errors="nan")
    assert np.isnan(result.easting[1])
    masked = np.ma.masked_array([48.0, 48.0], mask=[False, True])
    assert np.isnan(tessara.convert(masked, 11.0, errors="nan").easting[1])


def test_errors_have_status_index_and_reason():
    with pytest.raises(tessara.PositionError) as raised:
        tessara.convert([[48.0, 48.0], [91.0, 95.0]], 11.0)
    assert raised.value.index == (1, 0)
    assert raised.value.status == peers.NORTH_HIGH
    assert raised.value.reason == tessara.status_text(peers.NORTH_HIGH)
    assert "(1, 0)" in str(raised.value)
    with pytest.raises(ValueError):
        tessara.convert(91.0, 11.0)
    again = pickle.loads(pickle.dumps(raised.value))
    assert (again.status, again.index) == (raised.value.status, raised.value.index)


def test_errors_as_nan_and_as_statuses():
    result = tessara.convert([48.0, 91.0], 11.0, errors="nan")
    assert np.isnan(result.easting).tolist() == [False, True]
    assert result.zone.tolist() == [32, 0]
    assert result.hemisphere.tolist() == ["N", ""]
    statuses = tessara.convert([48.0, 91.0], 11.0, errors="status").status
    assert statuses.tolist() == [peers.OK, peers.NORTH_HIGH]


def test_a_position_far_from_the_wanted_zone_keeps_its_numbers_with_statuses():
    result = tessara.convert([0.0], [100.0], zone=1, errors="status")
    assert result.status.tolist() == [peers.ZONE_DISTANT]
    assert np.isfinite(result.easting).all()
    assert np.isnan(tessara.convert([0.0], [100.0], zone=1, errors="nan").easting).all()


def test_wrong_names_say_what_is_wrong():
    with pytest.raises(ValueError, match="unknown system 'UMT'"):
        tessara.convert(1.0, 2.0, to="UMT")
    with pytest.raises(ValueError, match="unknown datum 'WGS85'"):
        tessara.convert(1.0, 2.0, to="UTM@WGS85")
    with pytest.raises(ValueError, match="a Map"):
        tessara.convert(1.0, 2.0, to="FLOATPIXEL")
    with pytest.raises(ValueError, match="from_zone"):
        tessara.convert(1.0, 2.0, from_="UTM", to="GEODEZ")
    with pytest.raises(ValueError, match="no zones"):
        tessara.convert(1.0, 2.0, to="GEODEZ", zone=32)
    with pytest.raises(ValueError, match="errors"):
        tessara.convert([1.0], 2.0, errors="ignore")


def test_results_and_conversions_can_be_pickled():
    result = tessara.convert([48.0], [11.0])
    again = pickle.loads(pickle.dumps(result))
    assert again._fields == result._fields
    assert again.easting == result.easting
    conversion = pickle.loads(pickle.dumps(tessara.Conversion("GEODEZ@CH1903", "UTM", zone=31)))
    assert repr(conversion) == "Conversion('GEODEZ@CH1903', 'UTM:zone=31@WGS84')"
    assert conversion(47.0, 5.9).zone == 31


def test_tables_list_what_there_is():
    systems = tessara.systems()
    assert list(systems.columns) == ["number", "unit", "fields"]
    assert systems.loc["UTM", "fields"] == ("zone", "hemisphere", "easting", "northing")
    datums = tessara.datums()
    assert len(datums) == 239
    assert datums.loc["WGS84", "a"] == 6378137.0
    assert datums.loc["WGS84", "f"] == pytest.approx(1 / 298.257223563, rel=1e-12)
