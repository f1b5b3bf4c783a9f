"""Data frames, points of GeoPandas, and the names that pyproj knows."""

import geopandas as gpd
import numpy as np
import pandas as pd
import peers
import pyproj
import pytest
from shapely.geometry import Point

import tessara
import tessara.geo
import tessara.pandas  # noqa: F401 (gives frames their accessor)


@pytest.fixture
def towns():
    return pd.DataFrame({"lat": [48.1375, 52.5, 95.0], "lon": [11.5755, 13.4, 0.0], "h": [520.0, 34.0, 0.0]},
                        index=["Munich", "Berlin", "nowhere"])


def test_frames_convert(towns):
    result = towns.tessara.convert(to="UTM", height="h")
    assert list(result.columns) == ["zone", "hemisphere", "easting", "northing", "height"]
    assert result.loc["Munich", "easting"] == tessara.convert(48.1375, 11.5755).easting
    assert result.index.equals(towns.index)
    assert np.isnan(result.loc["nowhere", "easting"])
    with pytest.raises(tessara.PositionError):
        towns.tessara.convert(to="UTM", errors="raise")
    back = result.drop("nowhere").tessara.convert("northing", "easting", from_="UTM", from_zone="zone",
                                                  from_hemisphere="hemisphere", to="GEODEZ")
    assert np.allclose(back, towns[["lat", "lon"]].drop("nowhere"), rtol=0, atol=1e-9)
    assert towns.tessara.references(precision=1000).tolist() == [peers.military_reference(48.1375, 11.5755, 32, 2), peers.military_reference(52.5, 13.4, 33, 2), ""]
    assert towns.tessara.zones().zone.tolist() == [32, 33, 0]
    assert towns.tessara.distance((48.1375, 11.5755)).distance["Munich"] == 0.0


def test_points_convert_from_any_reference():
    points = gpd.GeoSeries([Point(11.5755, 48.1375), Point(13.4, 52.5)], index=["a", "b"], crs=4326)
    expected = tessara.geo.convert_points(points, "UTM")
    carried = tessara.geo.convert_points(points.to_crs(3857), "UTM")
    assert expected.index.tolist() == ["a", "b"]
    assert tessara.geo.references(points).tolist() == [peers.military_reference(48.1375, 11.5755, 32), peers.military_reference(52.5, 13.4, 33)]
    assert np.allclose(expected.easting, carried.easting, rtol=0, atol=1e-3)


def test_grid_lines_are_line_strings():
    sheet = tessara.Map.around(48.1375, 11.5755, metres=20000)
    lines = tessara.geo.grid_lines(sheet, "UTM", 5000)
    assert lines.crs == "EPSG:4326"
    # 681.6 to 701.6 km east and 5326.8 to 5342.8 km north.
    assert lines.index.tolist() == ["east"] * 4 + ["north"] * 3
    metres = lines.to_crs(32632)
    assert np.allclose(metres["east"].bounds.minx, metres["east"].bounds.maxx, rtol=0, atol=1e-3)


def test_zone_borders_are_meridians():
    borders = tessara.geo.zone_borders(40, 2, 50, 20)
    assert borders.index.tolist() == [32, 33, 34]
    assert np.allclose(borders.bounds.minx, [6, 12, 18], rtol=0, atol=1e-7)
    assert np.allclose(borders.bounds[["miny", "maxy"]], [40, 50], rtol=0, atol=1e-7)


# UTM ends at 80 degrees south and 84 degrees north, the limits of northings on the central meridian. Three degrees beside
# it, a northing is up to 0.0134 degrees nearer to the equator, and lines end within a 16000th of the window, 0.0113 degrees.
def test_zone_borders_end_with_the_system():
    borders = tessara.geo.zone_borders(-90, 11, 90, 13)
    assert borders.index.tolist() == [33]
    assert borders.bounds.miny[33] == pytest.approx(-80, abs=0.025)
    assert borders.bounds.maxy[33] == pytest.approx(84, abs=0.025)


def test_zone_borders_cross_the_date_line():
    borders = tessara.geo.zone_borders(10, 173, 11, -173)
    assert borders.index.tolist() == [60, 1, 2]
    assert np.allclose(borders.bounds.minx, [174, 180, 186], rtol=0, atol=1e-7)


# Strips of Gauss and Krueger have their central meridians at multiples of 3 degrees.
def test_zone_borders_of_strips_are_halfway_between_meridians():
    borders = tessara.geo.zone_borders(48, 10, 49, 14, "GK@WGS84")
    assert borders.index.tolist() == [4, 5]
    assert np.allclose(borders.bounds.minx, [10.5, 13.5], rtol=0, atol=1e-7)


@pytest.mark.parametrize("window, system", [
    ((50, 2, 40, 20), "UTM"),
    ((40, 2, 40, 20), "UTM"),
    ((40, 2, 50, np.inf), "UTM"),
    ((np.nan, 2, 50, 20), "UTM"),
    ((46, 7, 47, 8), "CH"),
    ((46, 7, 47, 8), "nowhere"),
])
def test_windows_and_systems_without_borders_are_refused(window, system):
    with pytest.raises(ValueError):
        tessara.geo.zone_borders(*window, system)


# The names of the same grid: positions on the grid's own datum agree to a millimetre.
@pytest.mark.parametrize("reference, keys, datum, latitude, longitude", [
    ("UTM", {"zone": 32}, "WGS84", 48.1, 9.5),
    ("UTM", {"zone": 32, "hemisphere": "S"}, "WGS84", -48.1, 9.5),
    ("UPS", {}, "WGS84", 85.0, 30.0),
    ("BNG@OGB_M", {}, "OGB_M", 52.5, -1.5),
    ("CH@CH1903", {}, "CH1903", 46.9, 8.1),
    ("RD@RDNAP", {}, "RDNAP", 52.1, 5.3),
])
def test_names_of_grids_are_those_of_pyproj(reference, keys, datum, latitude, longitude):
    grid = pyproj.CRS(tessara.to_pyproj(reference, **keys))
    there = pyproj.Transformer.from_crs(grid.geodetic_crs, grid, always_xy=True).transform(longitude, latitude)
    ours = tessara.convert(latitude, longitude, from_=f"GEODEZ@{datum}", to=reference)
    east = ours.fullEasting if "BNG" in reference else ours.easting
    north = ours.fullNorthing if "BNG" in reference else ours.northing
    assert (east, north) == pytest.approx(there, abs=1e-3)


def test_other_names_are_refused():
    assert tessara.to_pyproj("GEODEZ") == "EPSG:4326"
    assert tessara.to_pyproj("ECEF") == "EPSG:4978"
    for reference, keys in (("GEOREF", {}), ("UTM", {}), ("UTM", {"zone": 61}), ("UTM", {"zone": 32, "hemisphere": "X"}), ("XYZ", {})):
        with pytest.raises(ValueError):
            tessara.to_pyproj(reference, **keys)
