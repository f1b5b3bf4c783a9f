"""Names of the systems in other libraries."""

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
    """Returns the EPSG code of a system, as a text for `pyproj.CRS`. Raises ValueError for a system without a code.

    >>> to_pyproj("UTM", zone=32)
    'EPSG:32632'
    """
    name = _tessara.Conversion(reference, reference, None).to
    system, _, datum = name.partition("@")
    if hemisphere not in ("N", "S"):
        raise ValueError(f"the hemisphere must be N or S, not {hemisphere!r}")
    if system == "UTM" and (datum, hemisphere) in UTM_CODES:
        if zone is None or not 1 <= zone <= 60:
            raise ValueError("UTM requires a zone in 1..60")
        return f"EPSG:{UTM_CODES[datum, hemisphere] + zone}"
    if system == "UPS" and datum == "WGS84":
        return f"EPSG:{UPS_CODES[hemisphere]}"
    if (system, datum) in EPSG_CODES:
        return f"EPSG:{EPSG_CODES[system, datum]}"
    raise ValueError(f"{name} has no known EPSG code")
