"""Positions in data frames: `import tessara.pandas` adds the accessor `tessara` to DataFrame."""

from __future__ import annotations

from typing import Any

import pandas as pd

from ._conversion import WGS84_DEGREES, Errors, convert
from ._geodesics import distance
from ._texts import format
from ._zones import zones


@pd.api.extensions.register_dataframe_accessor("tessara")
class TessaraAccessor:
    """Operations on the positions in columns of a frame. Results are frames with its index."""

    def __init__(self, frame: pd.DataFrame) -> None:
        self._frame = frame

    def convert(
        self, lat: str = "lat", lon: str = "lon", *, to: str, height: str | None = None, from_: str = WGS84_DEGREES,
        zone: int | None = None, from_zone: str | int | None = None, from_hemisphere: str | None = None,
        errors: Errors = "nan",
    ) -> pd.DataFrame:
        """Converts the positions to another system; `tessara.convert` documents the arguments. `lat`, `lon` and `height`
        are names of columns; `from_zone` and `from_hemisphere` are values or names of columns. By default, a position
        without a result is NaN.

        >>> towns = pd.DataFrame({"lat": [48.1375], "lon": [11.5755]}, index=["Munich"])
        >>> towns.tessara.convert(to="UTMREF")
                zone band square  easting  northing
        Munich    32    U     PU    91603     34791
        """
        result = convert(
            self._frame[lat], self._frame[lon], None if height is None else self._frame[height], from_=from_, to=to,
            zone=zone, from_zone=self._column(from_zone), from_hemisphere=self._column(from_hemisphere), errors=errors,
        )
        return pd.DataFrame(result._asdict(), index=self._frame.index)

    def references(self, lat: str = "lat", lon: str = "lon", *, precision: float = 1.0, errors: Errors = "nan") -> Any:
        """Returns the military references of the positions with a precision in metres; empty for positions without one.

        >>> pd.DataFrame({"lat": [48.1375], "lon": [11.5755]}).tessara.references(precision=100)[0]
        '32UPU916348'
        """
        return format(self._frame[lat], self._frame[lon], precision=precision, errors=errors)

    def zones(self, lat: str = "lat", lon: str = "lon", system: str = "UTM", *, errors: Errors = "nan") -> pd.DataFrame:
        """Returns the zones of the positions; see `tessara.zones`."""
        result = zones(self._frame[lat], self._frame[lon], system, errors=errors)
        return pd.DataFrame(result._asdict(), index=self._frame.index)

    def distance(self, to: tuple[float, float], lat: str = "lat", lon: str = "lon", *, errors: Errors = "nan") -> pd.DataFrame:
        """Computes the geodesics from the positions to another one; see `tessara.distance`."""
        result = distance(self._frame[lat], self._frame[lon], *to, errors=errors)
        return pd.DataFrame(result._asdict(), index=self._frame.index)

    def _column(self, name: Any) -> Any:
        return self._frame[name] if isinstance(name, str) and name in self._frame.columns else name
