"""The table of datums against PROJ's database, which has the EPSG registry."""

import sqlite3
from pathlib import Path

import pyproj
import pytest

import tessara

DEBIAN_DATABASE = Path("/usr/share/proj/proj.db")

# Shifts by three numbers without rotations, from any geographic system to WGS84, with the ellipsoid of the system.
SHIFTS = """
SELECT tx, ty, tz, ellipsoid.semi_major_axis, ellipsoid.inv_flattening, ellipsoid.semi_minor_axis
FROM helmert_transformation_table AS shift
JOIN geodetic_crs AS crs ON (crs.auth_name, crs.code) = (source_crs_auth_name, source_crs_code)
JOIN geodetic_datum AS datum ON (datum.auth_name, datum.code) = (crs.datum_auth_name, crs.datum_code)
JOIN ellipsoid ON (ellipsoid.auth_name, ellipsoid.code) = (ellipsoid_auth_name, ellipsoid_code)
WHERE (target_crs_auth_name, target_crs_code) = ('EPSG', '4326') AND coalesce(rx, 0) = 0
"""

# Their shifts are rounded from transformations with rotations or fit one country, and the registry hasn't got them.
NATIONAL = {"GER", "MGI", "CH1903", "KKJ", "ETRS89", "KS42/83", "RDNAP", "NTL"}
# These have no shift, so there is nothing to find: the sphere, the datum of the user, and WGS84 itself.
WITHOUT_SHIFT = {"Kugel", "USERDEF", "WGS84"}

# The registry has three forms of Clarke's ellipsoid of 1880, whose minor axes are up to 13 centimetres apart.
SAME_AXES = 0.15

# The registry gives these another length of a foot or of a legal metre; PROJ's list has the ellipsoid of the first two. The
# third is "Everest (Pakistan)" of NIMA TR8350.2.
OTHER_AXES = {"IND_I": "evrst56", "SCK": "bess_nam", "IND_P": (6377309.613, 300.8017)}


def minor_axis(a, inverse_flattening, b):
    return b or a - a / inverse_flattening


@pytest.fixture(scope="module")
def registry():
    # pyproj itself finds Debian's directory only where PROJ's programs are installed.
    database = DEBIAN_DATABASE if DEBIAN_DATABASE.exists() else Path(pyproj.datadir.get_data_dir()) / "proj.db"
    with sqlite3.connect(f"file:{database}?mode=ro", uri=True) as connection:
        rows = connection.execute(SHIFTS).fetchall()
    ellipsoids = {}
    for dx, dy, dz, a, *rest in rows:
        ellipsoids.setdefault((dx, dy, dz), []).append((a, minor_axis(a, *rest)))
    return ellipsoids


def axes_by_name(ellipsoid):
    if isinstance(ellipsoid, str):
        row = pyproj.get_ellps_map()[ellipsoid]
        ellipsoid = row["a"], row["rf"]
    return ellipsoid[0], minor_axis(*ellipsoid, None)


@pytest.mark.parametrize("name", sorted(set(tessara.datums().index) - NATIONAL - WITHOUT_SHIFT))
def test_shift_and_ellipsoid_stand_in_the_registry(registry, name):
    datum = tessara.datums().loc[name]
    axes = (datum.a, datum.a * (1 - datum.f))
    published = registry[datum.dx, datum.dy, datum.dz]
    if name in OTHER_AXES:
        published = [axes_by_name(OTHER_AXES[name])]
    assert any(axes == pytest.approx(others, rel=0, abs=SAME_AXES) for others in published), (axes, published)
