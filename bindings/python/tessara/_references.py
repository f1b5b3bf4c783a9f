"""The systems by the names that other libraries have for them."""

from __future__ import annotations

from . import _tessara

# EPSG codes by system and datum.
EPSG_CODES = {
    ("GEODEZ", "WGS84"): 4326,
    ("ECEF", "WGS84"): 4978,
    ("BNG", "OGB_M"): 27700,
    ("CH", "CH1903"): 21781,
    ("RD", "RDNAP"): 28992,
}
UTM_CODES = {("WGS84", "N"): 32600, ("WGS84", "S"): 32700}
UPS_CODES = {"N": 5041, "S": 5042}


def to_pyproj(reference: str, *, zone: int | None = None, hemisphere: str = "N") -> str:
    """The EPSG code of a system where it has one: a text that `pyproj.CRS` takes.

    >>> to_pyproj("UTM", zone=32)
    'EPSG:32632'
    """
    name = _tessara.Conversion(reference, reference, None).to
    system, _, datum = name.partition("@")
    if hemisphere not in ("N", "S"):
        raise ValueError(f"the hemisphere is N or S, not {hemisphere!r}")
    if system == "UTM" and (datum, hemisphere) in UTM_CODES:
        if zone is None or not 1 <= zone <= 60:
            raise ValueError("a UTM grid has a zone in 1..60")
        return f"EPSG:{UTM_CODES[datum, hemisphere] + zone}"
    if system == "UPS" and datum == "WGS84":
        return f"EPSG:{UPS_CODES[hemisphere]}"
    if (system, datum) in EPSG_CODES:
        return f"EPSG:{EPSG_CODES[system, datum]}"
    raise ValueError(f"no EPSG code is known for {name}")
