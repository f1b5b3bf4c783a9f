"""Maps, areas and lines."""

import pickle
import xml.etree.ElementTree as xml

import numpy as np
import peers
import pyproj
import pytest

import tessara

SQUARE = [(48, 11), (49, 11), (49, 12), (48, 12)]


@pytest.fixture
def sheet():
    return tessara.Map.around(48.1375, 11.5755, metres=20000, layers=[])


def test_the_surroundings_of_a_place_are_a_whole_map():
    sheet = tessara.Map.around(48.1375, 11.5755, metres=20000)
    assert [layer["type"] for layer in sheet.description["layers"]] == ["grid", "grid", "positions"]
    assert sheet.problems() == []
    assert "20 km" in sheet.svg()
    assert tessara.Map.around(48.1375, 11.5755, title="Munich").description["title"] == "Munich"


# A pole, a continent, the earth: on four projections.
@pytest.mark.parametrize("latitude, longitude, metres", [(89.9, 30.0, 20e3), (-80.5, 0.0, 10e3), (50.0, 10.0, 3e6), (0.0, -100.0, 40e6)])
def test_the_surroundings_of_any_place_have_it_in_the_middle(latitude, longitude, metres):
    sheet = tessara.Map.around(latitude, longitude, metres=metres)
    window = sheet.description["window"]
    assert sheet.problems() == []
    # The corner of a grid has whole centimetres, half of which are 1/2000 pixel of the smallest map.
    assert sheet.pixels(latitude, longitude) == pytest.approx(((window["left"] + window["right"]) / 2, (window["top"] + window["bottom"]) / 2), abs=1e-3)


@pytest.mark.parametrize("latitude, longitude, metres", [
    (91, 0, 1e4), (0, 181, 1e4), (np.nan, 0, 1e4), (0, 0, 0), (0, 0, -5), (0, 0, 1e9), (0, 0, np.nan), (0, np.inf, 1e4)])
def test_what_has_no_surroundings_is_refused(latitude, longitude, metres):
    with pytest.raises(ValueError):
        tessara.Map.around(latitude, longitude, metres=metres)


def test_pixels_are_grid_values_by_the_scale(sheet, rng):
    latitudes = rng.uniform(48.1, 48.2, 200)
    longitudes = rng.uniform(11.5, 11.6, 200)
    east, north = pyproj.Transformer.from_crs(4326, 32632).transform(latitudes, longitudes)
    middle = pyproj.Transformer.from_crs(4326, 32632).transform(48.1375, 11.5755)
    pixels = sheet.pixels(latitudes, longitudes)
    # 20 metres a pixel, the middle of 1000 by 800 pixels; the corner has whole centimetres, half of which are 1/4000 pixel.
    assert np.allclose(pixels.column, 500 + (east - middle[0]) / 20, rtol=0, atol=3e-4)
    assert np.allclose(pixels.row, 400 - (north - middle[1]) / 20, rtol=0, atol=3e-4)
    places = sheet.places(*pixels)
    assert np.allclose(places.latitude, latitudes, rtol=0, atol=1e-9)
    assert np.allclose(places.longitude, longitudes, rtol=0, atol=1e-9)


def test_what_has_no_pixel_has_a_status(sheet):
    with pytest.raises(tessara.PositionError) as raised:
        sheet.pixels([48.0, np.nan], 11.5)
    assert raised.value.index == 1
    assert sheet.pixels([48.0, np.nan], 11.5, errors="status").status.tolist() == [peers.OK, peers.OUTSIDE]
    assert np.isnan(sheet.places([1e300, np.inf], np.nan, errors="nan").latitude).all()


def test_a_map_is_its_picture(sheet):
    picture = xml.fromstring(sheet.add("grid", system="UTM", step=5000)._repr_svg_())
    assert picture.tag.endswith("svg")
    classes = {element.get("class") for element in picture.iter()}
    assert any("grid" in name for name in classes if name)
    assert sheet.problems() == []
    with pytest.raises(ValueError):
        sheet.svg(1e9)


def test_a_wrong_layer_is_refused_and_not_kept(sheet):
    with pytest.raises(ValueError, match="layers"):
        sheet.add("grid", system="UTM")
    with pytest.raises(ValueError):
        sheet.add("positions", places=[[np.nan, 1]])
    assert sheet.description["layers"] == []
    with pytest.raises(ValueError, match="projection"):
        tessara.Map()


def test_grid_lines_stand_at_whole_multiples(sheet):
    grid = sheet.grid("UTM", 5000)
    for line in grid.east_lines:
        east = pyproj.Transformer.from_crs(4326, 32632).transform(line[:, 0], line[:, 1])[0]
        assert np.allclose(east % 5000 * (east % 5000 < 2500) + (east % 5000 - 5000) * (east % 5000 >= 2500), 0, atol=1e-3)
    # 681.6 to 701.6 km east and 5326.8 to 5342.8 km north.
    assert len(grid.east_lines) == 4 and len(grid.north_lines) == 3
    with pytest.raises(ValueError):
        sheet.grid("UTM", 0)
    with pytest.raises(ValueError, match="more than 2000 lines"):
        sheet.grid("UTM", 0.05)
    with pytest.raises(ValueError, match="no grid lines"):
        sheet.grid("ECEF", 1)


# The window lies beyond the edge of the world, so that nothing bounds how many points a grid would try.
def test_a_window_without_extremes_has_no_grid():
    beyond = tessara.Map({
        "projection": {"type": "WAGNER-IV", "originLongitude": -98.390625, "stretchX": 1, "stretchY": 1},
        "scale": 94967287, "resolution": 10,
        "reference": {"pixel": [-12594, 8398], "place": {"at": [65.33984375, 138.109375]}},
        "window": {"left": 23328, "top": -598, "right": 26636.875, "bottom": 2710.875}, "layers": []})
    with pytest.raises(ValueError, match="no grid of UTMREF"):
        beyond.grid("UTMREF", 50.5)


def test_the_extent_of_a_window(sheet):
    extent = sheet.extent("UTM")
    east, north = pyproj.Transformer.from_crs(4326, 32632).transform(48.1375, 11.5755)
    assert extent.north.northing == pytest.approx(north + 8000, abs=20)  # a pixel
    assert extent.west.easting == pytest.approx(east - 10000, abs=20)
    assert sheet.extent().east.longitude == pytest.approx(11.5755 + 10000 / (111320 * np.cos(np.radians(48.1375))), abs=0.01)


def test_a_densified_geodesic_is_as_long_as_its_ends_are_apart(sheet):
    ends = [(48.1, 11.5), (48.2, 11.6)]
    chain = sheet.densify([(48.0, 9.0), (48.0, 14.0)])
    assert len(chain) > 2
    steps = tessara.distance(*chain[:-1].T, *chain[1:].T).distance
    assert steps.sum() == pytest.approx(tessara.distance(48.0, 9.0, 48.0, 14.0).distance, abs=1e-3)
    assert np.array_equal(sheet.densify(ends, "map")[[0, -1]], ends)
    with pytest.raises(ValueError, match="straight"):
        sheet.densify(ends, "crooked")


def test_a_line_straight_in_a_grid_is_straight_there():
    chain = tessara.densify([(48.0, 9.0), (48.5, 11.0)], "UTM")
    assert chain.shape == (33, 2)
    east, north = pyproj.Transformer.from_crs(4326, 32632).transform(*chain.T)
    assert np.allclose(np.interp(east, east[[0, -1]], north[[0, -1]]), north, rtol=0, atol=1e-3)


def test_points_in_polygons():
    inside = tessara.point_in_polygon([[48.1, 48.9], [50.0, 48.5]], [[11.1, 11.9], [11.5, 12.5]], SQUARE)
    assert inside.tolist() == [[True, True], [False, False]]
    assert tessara.point_in_polygon(48.5, 11.5, SQUARE) is True
    with pytest.raises(ValueError, match="rows of latitude"):
        tessara.point_in_polygon(48.5, 11.5, [1, 2, 3])


def test_polygons_are_laid_over_each_other():
    crossing = tessara.overlay(SQUARE, [(48.5, 11.5), (49.5, 11.5), (49.5, 12.5), (48.5, 12.5)])
    assert crossing.relation == "crossing"
    assert len(crossing.both) == len(crossing.only_first) == len(crossing.only_second) == 1
    assert tessara.extent(crossing.both[0]).south.latitude == pytest.approx(48.5, abs=1e-3)  # edges are straight on the map
    assert tessara.overlay(SQUARE, SQUARE).relation == "equal"
    assert tessara.overlay(SQUARE, [(58, 11), (59, 11), (59, 12)]).relation == "apart"
    assert tessara.overlay(SQUARE, [(48.2, 11.2), (48.3, 11.2), (48.3, 11.3)]).relation == "second inside"


def test_maps_can_be_pickled_and_described(sheet):
    again = pickle.loads(pickle.dumps(sheet.add("positions", places=np.array([[48.1, 11.5]]))))
    assert again.description == sheet.description
    assert again.datum == "WGS84"
