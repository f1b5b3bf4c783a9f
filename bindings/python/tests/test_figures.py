"""The figures that the page and the docstrings show are those of other programs, of published examples and of plain
arithmetic."""

import inspect
import re
from pathlib import Path

import peers
import pyproj
import pytest
import tutorial

import tessara
import tessara.geo
import tessara.pandas

MUNICH = (48.1375, 11.5755)
BERLIN = (52.52, 13.405)
ZURICH = (47.3769, 8.5417)
WGS84 = pyproj.Geod(ellps="WGS84")


def ecef():
    return pyproj.Transformer.from_crs(4979, 4978).transform(*MUNICH, 520.0)


def factors():
    return pyproj.Proj("EPSG:32632").get_factors(*MUNICH[::-1])


def to_berlin():
    azimuth, back, metres = WGS84.inv(*MUNICH[::-1], *BERLIN[::-1])
    return metres, azimuth % 360, back % 360


def eastward():
    longitude, latitude, back = WGS84.fwd(*MUNICH[::-1], 90.0, 10_000.0)
    return latitude, longitude, back % 360


def swiss():
    """CH1903 as the table of datums has it: 674, 14 and 405 metres from WGS84 to Bessel's ellipsoid."""
    return pyproj.Transformer.from_pipeline(
        "+proj=pipeline +step +proj=axisswap +order=2,1 +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart +ellps=WGS84 "
        "+step +inv +proj=helmert +x=674 +y=14 +z=405 +step +inv +proj=cart +ellps=bessel "
        "+step +proj=somerc +lat_0=46.95240555555556 +lon_0=7.439583333333333 +x_0=600000 +y_0=200000 +ellps=bessel").transform(*ZURICH)


# Boston to Portland on Clarke's ellipsoid of 1866: the example of the program geod in the manual of PROJ, which gives
# 4164192.708 m, 293 28 09.9 and 75 39 13.1 for whole minutes; the docstring has six decimals of a degree.
def to_portland():
    azimuth, back, metres = pyproj.Geod(ellps="clrk66").inv(-71.116667, 42.25, -123.683333, 45.516667)
    assert metres == pytest.approx(4164192.708, abs=0.1)
    assert azimuth % 360 == pytest.approx(293 + 28 / 60 + 9.9 / 3600, abs=1e-4)
    assert back % 360 == pytest.approx(75 + 39 / 60 + 13.1 / 3600, abs=1e-4)
    return metres, azimuth % 360, back % 360


# What is shown as the beginning of a number, and the number.
BEGINNINGS = [
    ("easting=691602.659...", lambda: peers.utm(*MUNICH, 32)[0]),
    ("northing=5334791.144...", lambda: peers.utm(*MUNICH, 32)[1]),
    ("x=4177951.787...", lambda: ecef()[0]),
    ("y=855748.708...", lambda: ecef()[1]),
    ("z=4727480.195...", lambda: ecef()[2]),
    ("convergence=1.918...", lambda: factors().meridian_convergence),
    ("scale=1.00005...", lambda: factors().meridional_scale),
    ("distance=504...", lambda: to_berlin()[0]),
    ("azimuth=14...", lambda: to_berlin()[1]),
    ("back_azimuth=195...", lambda: to_berlin()[2]),
    ("latitude=48.13742...", lambda: eastward()[0]),
    ("longitude=11.70985...", lambda: eastward()[1]),
    ("back_azimuth=270.1...", lambda: eastward()[2]),
    ("easting=683...", lambda: swiss()[0]),
    ("northing=247...", lambda: swiss()[1]),
    ("distance=4164192...", lambda: to_portland()[0]),
    ("azimuth=293.469...", lambda: to_portland()[1]),
    ("back_azimuth=75.653...", lambda: to_portland()[2]),
]

# What is shown whole, and what it is.
WHOLE = [
    ("691602.7, 391779.3, 465403.3", lambda: ", ".join(f"{peers.utm(*place, zone)[0]:.1f}" for place, zone in ((MUNICH, 32), (BERLIN, 33), (ZURICH, 32)))),
    ("691602.7, 798812.8, 465403.3", lambda: ", ".join(f"{peers.utm(*place, 32)[0]:.1f}" for place in (MUNICH, BERLIN, ZURICH))),
    ("32UPU9160334791", lambda: peers.military_reference(*MUNICH, 32)),
    ("33UUU9177920072", lambda: peers.military_reference(*BERLIN, 33)),
    ("32TMT6540347151", lambda: peers.military_reference(*ZURICH, 32)),
    ("32UPU916348", lambda: peers.military_reference(*MUNICH, 32, 3)),
    ("5334791.1445, 691602.6597", lambda: "{1:.4f}, {0:.4f}".format(*peers.utm(*MUNICH, 32))),
    ("array([    1, -3762], dtype=int32)", lambda: f"array([    {peers.OK}, {peers.NORTH_HIGH}], dtype=int32)"),
    ("status_text(-3708)", lambda: f"status_text({peers.UTM_LAT})"),
    # A degree of the equator.
    ("111319.4908", lambda: f"{6378137.0 * 3.141592653589793 / 180:.4f}"),
]


@pytest.fixture(scope="module")
def shown():
    sources = [inspect.getsource(module) for module in (tessara.geo, tessara.pandas)]
    sources += [file.read_text(encoding="utf-8") for file in Path(tessara.__file__).parent.glob("_*.py")]
    if tutorial.PAGE.exists():
        sources.append(tutorial.PAGE.read_text(encoding="utf-8"))
    return "\n".join(sources)


@pytest.mark.parametrize("text, figure", BEGINNINGS)
def test_beginnings_of_numbers(shown, text, figure):
    if text not in shown:
        assert not tutorial.PAGE.exists()
        pytest.skip("the page has it")
    assert f"{figure():.9f}".startswith(re.search(r"[\d.]*\d", text)[0])


@pytest.mark.parametrize("text, figure", WHOLE)
def test_whole_figures(shown, text, figure):
    if text not in shown:
        assert not tutorial.PAGE.exists()
        pytest.skip("the page has it")
    assert figure() == text
