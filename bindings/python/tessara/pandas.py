"""Positions in data frames: `import tessara.pandas` gives each DataFrame an accessor `tessara`."""

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
        """The fields of the positions in another system; `tessara.convert` has the arguments. `lat`, `lon`, `height` and,
        where they name columns, `from_zone` and `from_hemisphere` are the names of columns. A position without a result
        is NaN, unless `errors` says otherwise.

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
        """The military references of the positions, to so many metres; empty where there is none.

        >>> pd.DataFrame({"lat": [48.1375], "lon": [11.5755]}).tessara.references(precision=100)[0]
        '32UPU916348'
        """
        return format(self._frame[lat], self._frame[lon], precision=precision, errors=errors)

    def zones(self, lat: str = "lat", lon: str = "lon", system: str = "UTM", *, errors: Errors = "nan") -> pd.DataFrame:
        """The zones of the positions; see `tessara.zones`."""
        result = zones(self._frame[lat], self._frame[lon], system, errors=errors)
        return pd.DataFrame(result._asdict(), index=self._frame.index)

    def distance(self, to: tuple[float, float], lat: str = "lat", lon: str = "lon", *, errors: Errors = "nan") -> pd.DataFrame:
        """The ways from the positions to one place; see `tessara.distance`."""
        result = distance(self._frame[lat], self._frame[lon], *to, errors=errors)
        return pd.DataFrame(result._asdict(), index=self._frame.index)

    def _column(self, name: Any) -> Any:
        return self._frame[name] if isinstance(name, str) and name in self._frame.columns else name
