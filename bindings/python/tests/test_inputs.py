"""Whatever is passed, the interpreter goes on: a result, or an exception."""

import numpy as np
import pandas as pd
import peers
import pyproj
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as arrays

import tessara

LATITUDES = np.linspace(-70, 70, 1000)
LONGITUDES = np.linspace(-179, 179, 1000)


def same(one, other):
    return all(np.array_equal(a, b) for a, b in zip(one, other))


def test_layouts_in_memory_make_no_difference():
    plain = tessara.convert(LATITUDES, LONGITUDES)
    packed = np.zeros(1000, dtype=[("tag", "u1"), ("lat", "f8"), ("lon", "f8")])
    packed["lat"], packed["lon"] = LATITUDES, LONGITUDES
    wide = np.zeros((1000, 3))
    wide[:, 1] = LATITUDES
    read_only = LATITUDES.copy()
    read_only.flags.writeable = False
    assert same(tessara.convert(packed["lat"], packed["lon"]), plain)
    assert same(tessara.convert(wide[:, 1], LONGITUDES), plain)
    assert same(tessara.convert(read_only, LONGITUDES), plain)
    assert same(tessara.convert(LATITUDES.astype(">f8"), LONGITUDES), plain)
    assert same(tessara.convert(LATITUDES.astype(object), LONGITUDES.tolist()), plain)
    backward = tessara.convert(LATITUDES[::-1], LONGITUDES[::-1])
    assert same([column[::-1] for column in backward], plain)
    square = tessara.convert(LATITUDES.reshape(20, 50).T, LONGITUDES.reshape(20, 50).T)
    assert same([column.T.reshape(-1) for column in square], plain)
    fortran = tessara.convert(np.asfortranarray(LATITUDES.reshape(20, 50)), LONGITUDES.reshape(20, 50))
    assert same([column.reshape(-1) for column in fortran], plain)


def test_a_contiguous_array_is_not_copied():
    before = LATITUDES.copy()
    tessara.convert(LATITUDES, LONGITUDES)
    assert np.array_equal(LATITUDES, before)
    assert tessara._arrays.numbers(LATITUDES, "latitude") is LATITUDES


@pytest.mark.parametrize("shape", [(0,), (0, 3), (3, 0)])
def test_no_positions_are_no_results(shape):
    result = tessara.convert(np.zeros(shape), np.zeros(shape))
    assert all(column.shape == shape for column in result)
    assert tessara.distance(np.zeros(shape), 0, 0, 0).distance.shape == shape


@pytest.mark.parametrize("bad", [None, "48", b"48", ["48"], [object()], np.array(["48"], dtype=object), 1j, [1j], np.array(["a"]), {}, {"a": 1}, object(),
                                 np.array(["2020-01-01"], dtype="M8[D]"), [[1.0], [1.0, 2.0]], pd.Series(["x"]), 10**400, lambda: 0])
def test_what_is_no_number_is_refused(bad):
    for operation in (
        lambda: tessara.convert(bad, 11.0),
        lambda: tessara.convert(11.0, bad),
        lambda: tessara.convert(11.0, bad, errors="nan"),
        lambda: tessara.distance(bad, 0, 0, 0),
        lambda: tessara.direct(0, 0, bad, 0),
        lambda: tessara.zones(bad, 0),
        lambda: tessara.point_in_polygon(bad, 0, [(0, 0), (1, 0), (1, 1)]),
        lambda: tessara.extent(bad),
        lambda: tessara.overlay(bad, bad),
    ):
        with pytest.raises((TypeError, ValueError, OverflowError)):
            operation()


def test_none_in_an_array_is_a_missing_value():
    assert np.isnan(tessara.convert([48.0, None], 11.0, errors="nan").easting).tolist() == [False, True]


def test_shapes_that_do_not_broadcast_are_refused():
    with pytest.raises(ValueError):
        tessara.convert([1.0, 2.0], [1.0, 2.0, 3.0])


def test_what_does_not_fit_into_memory_is_refused():
    everything = np.broadcast_to(48.0, (1 << 20, 1 << 20, 16))
    with pytest.raises((MemoryError, ValueError)):
        tessara.convert(everything, 11.0)


@pytest.mark.parametrize("system", ["UTM", "UTMREF", "GK", "GK6", "GEOGRAD", "GEODEZMIN", "GEOREF", "ECEF", "UPS", "VDG", "TM",
                                    "GEODEZ", "CH", "BNG", "ING", "RD", "LUREF", "PO_MILITARY", "BMN", "OEM", "GK-AT"])
@settings(max_examples=30, deadline=None)
@given(arrays.arrays(np.float64, st.tuples(st.just(2), st.integers(0, 200)), elements=st.floats(width=64)))
def test_any_numbers_have_a_status(system, values):
    result = tessara.convert(values[0], values[1], to=f"{system}@GER", errors="status")
    good = result.status == peers.OK
    for column in result[:-1]:
        if column.dtype == np.float64:
            assert np.isfinite(column[good]).all()
            if system != "UTM":
                assert np.isnan(column[~good & (result.status != peers.ZONE_DISTANT)]).all()


@settings(max_examples=50, deadline=None)
@given(st.dictionaries(st.sampled_from(["zone", "band", "square", "easting", "northing"]),
                       st.one_of(st.floats(), st.integers(), st.text(max_size=3), st.none(), st.lists(st.floats(), max_size=3))))
def test_any_fields_have_a_result_or_an_exception(fields):
    try:
        tessara.Conversion("UTMREF", "GEODEZ").fields(fields, errors="status")
    except (ValueError, TypeError, OverflowError):
        pass


def test_fields_are_a_mapping_or_a_result():
    with pytest.raises(TypeError, match="mapping or the result of a conversion, not list"):
        tessara.Conversion("UTMREF", "GEODEZ").fields([32, "U", "PU", 91603, 34791])


def test_a_description_has_no_array_beyond_memory():
    everything = np.broadcast_to(48.0, (1 << 20, 1 << 20, 16))
    with pytest.raises(ValueError, match="at most 10000000 numbers"):
        tessara.Map.around(48.0, 11.0).add("positions", places=everything)


def test_letters_are_checked():
    conversion = tessara.Conversion("UTMREF", "GEODEZ")
    good = {"zone": 32, "band": "U", "square": "PU", "easting": 91603, "northing": 34791}
    # Square PU of zone 32 begins at 600 km east and 5300 km north.
    place = pyproj.Transformer.from_crs(32632, 4326).transform(691603, 5334791)
    assert conversion.fields(good) == pytest.approx(place, abs=1e-9)
    with pytest.raises(ValueError, match="at most 1 letter"):
        conversion.fields({**good, "band": "UU"})
    with pytest.raises(TypeError, match="text"):
        conversion.fields({**good, "band": 7})
    with pytest.raises(tessara.PositionError):
        conversion.fields({**good, "band": "\u0416"})
    with pytest.raises(tessara.PositionError):
        conversion.fields({**good, "zone": 32.5})
    with pytest.raises(ValueError, match="no field 'x'"):
        conversion.fields({**good, "x": 1})


@settings(max_examples=100, deadline=None)
@given(st.lists(st.tuples(st.floats(), st.floats()), max_size=8), st.lists(st.tuples(st.floats(-90, 90), st.floats(-180, 180)), max_size=8))
def test_any_polygon_has_a_result_or_an_exception(first, second):
    for operation in (lambda: tessara.overlay(first, second), lambda: tessara.overlay(second, second), lambda: tessara.extent(first, "UTM"),
                      lambda: tessara.densify(second, "UTM"), lambda: tessara.point_in_polygon(0, 0, second)):
        try:
            operation()
        except ValueError:
            pass
