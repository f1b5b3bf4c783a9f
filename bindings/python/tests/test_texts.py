"""Positions as texts, read and written."""

import numpy as np
import pandas as pd
import peers
import pyproj
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import tessara

# 48 degrees 8 minutes 15 seconds are 48.1375, 11 degrees 34 minutes 31.8 seconds are 11.5755.
SPELLINGS = ["48.1375 11.5755", "48.1375, 11.5755", "N 48 8.25 E 11 34.53", "48°08'15\"N 11°34'31.8\"E"]


def test_degrees_are_read_in_all_spellings():
    found = tessara.parse(SPELLINGS)
    assert np.allclose(found.latitude, 48.1375, rtol=0, atol=1e-9)
    assert np.allclose(found.longitude, 11.5755, rtol=0, atol=1e-9)
    assert found.system.tolist() == ["GEODEZ", "GEODEZ", "GEODEZMIN", "GEOGRAD"]


def test_military_references_are_read_as_one_text():
    latitude, longitude = pyproj.Transformer.from_crs(32632, 4326).transform(691603, 5334791)
    for text in ("32UPU9160334791", "32U PU 91603 34791", "32upu 91603 34791"):
        found = tessara.parse(text)
        assert found.system == "UTMREF"
        assert (found.latitude, found.longitude) == pytest.approx((latitude, longitude), abs=1e-8)


def test_references_are_those_of_the_grid_values(rng):
    latitudes = rng.uniform(-79, 83, 2000)
    longitudes = rng.uniform(-179, 179, 2000)
    texts = tessara.format(latitudes, longitudes)
    grid = tessara.convert(latitudes, longitudes)
    for text, zone, easting, northing in zip(texts, grid.zone, grid.easting, grid.northing):
        assert text.startswith(str(zone))
        # To the nearest metre; half metres may go either way by the last digit.
        assert abs((easting - int(text[-10:-5]) + 50000) % 100000 - 50000) <= 0.5 + 1e-6
        assert abs((northing - int(text[-5:]) + 50000) % 100000 - 50000) <= 0.5 + 1e-6


@pytest.mark.parametrize("digits", range(6))
@pytest.mark.parametrize("is_truncated", [False, True])
def test_letters_are_those_of_the_standard(rng, digits, is_truncated):
    latitudes = rng.uniform(0.01, 83.9, 300)
    longitudes = rng.uniform(-179.99, 0, 300)  # west of Norway and Svalbard, zones have 6 degrees everywhere
    zones = ((longitudes + 180) // 6).astype(int) + 1
    texts = tessara.format(latitudes, longitudes, precision=10 ** (5 - digits), truncate=is_truncated)
    for latitude, longitude, zone, text in zip(latitudes.tolist(), longitudes.tolist(), zones.tolist(), texts):
        assert text == peers.military_reference(latitude, longitude, zone, digits, is_truncated)


def test_what_is_written_is_read_back(rng):
    latitudes = rng.uniform(-79, 83, 500)
    longitudes = rng.uniform(-179, 179, 500)
    for precision in (1, 10, 100, 1000):
        back = tessara.parse(tessara.format(latitudes, longitudes, precision=precision))
        far = tessara.distance(latitudes, longitudes, back.latitude, back.longitude).distance
        assert (far <= 1.6 * precision).all()  # a diagonal of the square
    for system in ("GEODEZ", "GEOGRAD", "GEODEZMIN", "UTM"):
        texts = tessara.format(latitudes, longitudes, to=system)
        joined = [f"{north}\t{east}" for north, east in zip(*texts)]
        back = tessara.parse(joined, system)
        assert tessara.distance(latitudes, longitudes, back.latitude, back.longitude).distance.max() < 0.05


def test_coarser_references_and_display():
    assert tessara.format(48.1375, 11.5755, precision=100_000, truncate=True) == peers.military_reference(48.1375, 11.5755, 32, 0, True)
    assert tessara.format(48.1375, 11.5755, precision=1000, truncate=True) == peers.military_reference(48.1375, 11.5755, 32, 2, True)
    texts = tessara.format(48.1375, 11.5755, to="GEOGRAD", display=True)
    assert texts.north.startswith("48°08'15.000")
    assert tessara.format(48.1375, 11.5755, to="GEODEZ", precision=0.01).north == "48.14"
    with pytest.raises(ValueError, match="100000"):
        tessara.format(48.1375, 11.5755, precision=7)
    with pytest.raises(ValueError, match="above 0"):
        tessara.format(48.1375, 11.5755, to="UTM", precision=float("nan"))


def test_shapes_and_series_are_kept():
    texts = tessara.format([[48.0], [49.0]], [11.0, 12.0])
    assert texts.shape == (2, 2)
    assert tessara.parse(texts).latitude.shape == (2, 2)
    series = pd.Series(["32UPU9160334791"], index=["Munich"])
    assert tessara.parse(series).latitude["Munich"] == tessara.parse(series[0]).latitude
    assert tessara.format(pd.Series([48.0], index=["x"]), 11.0).index.tolist() == ["x"]
    assert tessara.parse([]).latitude.shape == (0,)


def test_a_wrong_text_says_which_piece_is_wrong():
    with pytest.raises(tessara.TextError) as raised:
        tessara.parse(["48.1375 11.5755", "32I PU 91603 34791"])
    error = raised.value
    assert error.index == 1
    assert error.piece == "I"
    assert error.begin == 2
    assert error.code and error.reason
    found = tessara.parse(["48.1375 11.5755", "nowhere"], errors="nan")
    assert np.isnan(found.latitude).tolist() == [False, True]
    assert found.system.tolist() == ["GEODEZ", ""]


def test_checks_count_characters_and_not_bytes():
    assert tessara.check("48°08'15\"N 11°34'31.8\"E").good
    wrong = tessara.check("48°08'15\"N 11°74'31.8\"E")
    assert not wrong.good
    assert "48°08'15\"N 11°74'31.8\"E"[wrong.begin:wrong.end] == wrong.piece
    assert "74" in wrong.piece


def test_positions_without_a_result_have_no_text():
    with pytest.raises(tessara.PositionError) as raised:
        tessara.format([48.0, 91.0], 11.0)
    assert raised.value.index == 1
    assert tessara.format([48.0, 91.0], 11.0, errors="nan").tolist()[1] == ""


@pytest.mark.parametrize("bad", [None, 7, b"48 11", [48.0], ["48 11", None], object()])
def test_what_is_no_text_is_refused(bad):
    with pytest.raises(TypeError):
        tessara.parse(bad)
    with pytest.raises(TypeError):
        tessara.check(bad)


@settings(max_examples=300, deadline=None)
@given(st.text(max_size=40), st.sampled_from(["auto", "UTM", "UTMREF", "GEOGRAD", "GK@GER", "BNG@OGB_M", "ECEF"]))
def test_any_text_is_a_position_or_has_a_reason(text, system):
    found = tessara.check(text, system)
    assert found.good != bool(found.code)
    assert 0 <= found.begin <= found.end <= len(text)


def test_halves_of_characters_are_no_harm():
    assert not tessara.check("48\ud800 11").good
    assert not tessara.check("48\0 11").good
