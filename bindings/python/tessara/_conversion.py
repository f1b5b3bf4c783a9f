"""Converts positions to another coordinate system and datum."""

from __future__ import annotations

import re
from collections import namedtuple
from collections.abc import Mapping
from functools import lru_cache
from typing import Any, Literal, cast

import numpy.typing as npt

from . import _tessara
from ._arrays import broadcast, form_of, numbers, texts

Errors = Literal["raise", "nan", "status"]
ERRORS = ("raise", "nan", "status")

WGS84_DEGREES = "GEODEZ@WGS84"
WGS84_UTM = "UTM@WGS84"


def check_errors(errors: str) -> None:
    if errors not in ERRORS:
        raise ValueError(f"errors must be one of {', '.join(ERRORS)}, not {errors!r}")


@lru_cache(maxsize=None)
def result_type(name: str, fields: tuple[str, ...]) -> type[tuple[Any, ...]]:
    """The type of named tuples with these fields. The values are numbers and texts, or arrays of them."""
    made = cast(Any, namedtuple(name, fields))
    made.__reduce__ = lambda self: (_rebuild, (name, fields, tuple(self)))
    return cast(type[tuple[Any, ...]], made)


def _rebuild(name: str, fields: tuple[str, ...], values: tuple[Any, ...]) -> tuple[Any, ...]:
    return tuple.__new__(result_type(name, fields), values)


def system_name(reference: str) -> str:
    """The system of a reference, as the name of a class."""
    return re.sub(r"\W", "_", re.split("[:@]", reference)[0])


class Conversion:
    """A prepared conversion from one reference to another.

    References are `SYSTEM[:PARAMETERS][@DATUM]` with the default datum WGS84. `zone` is the wanted zone, strip or meridian
    of the target; without it each position is converted to its natural zone.

    >>> to_utm = Conversion("GEODEZ", "UTM")
    >>> to_utm(48.1375, 11.5755)
    UTM(zone=32, hemisphere='N', easting=691602.659..., northing=5334791.144...)
    """

    def __init__(self, from_: str = WGS84_DEGREES, to: str = WGS84_UTM, *, zone: int | None = None) -> None:
        core = _tessara.Conversion(from_, to, zone)
        system = system_name(core.to)
        height = core.target_fields + (("height",) if core.gives_height else ())
        self._core = core
        self._point = core.point
        self._can_be_point = core.can_be_point
        self._name = system
        self._plain = result_type(system, core.target_fields)
        self._with_height = result_type(system, height)

    @property
    def from_(self) -> str:
        """The reference of the source, SYSTEM@DATUM."""
        return self._core.from_

    @property
    def to(self) -> str:
        """The reference of the target, SYSTEM@DATUM."""
        return self._core.to

    @property
    def source_fields(self) -> tuple[str, ...]:
        """The names of the fields of a source position, which are the keys of `fields`."""
        return self._core.source_fields

    @property
    def target_fields(self) -> tuple[str, ...]:
        """The names of the fields of a target position, in the order of a result."""
        return self._core.target_fields

    def __repr__(self) -> str:
        return f"Conversion({self.from_!r}, {self.to!r})"

    def __reduce__(self) -> tuple[Any, ...]:
        return _prepare, (self.from_, self.to, None)

    def __call__(
        self,
        north: Any,
        east: Any,
        height: Any = None,
        *,
        from_zone: Any = None,
        from_hemisphere: Any = None,
        errors: Errors = "raise",
    ) -> Any:
        """Converts positions; `convert` documents the arguments."""
        if self._can_be_point and type(north) is float and type(east) is float and errors == "raise":
            if height is None:
                if from_zone is None and from_hemisphere is None:
                    return tuple.__new__(self._plain, self._point(north, east))
        pair = self._core.pair
        names = self._core.source_fields
        if pair is None:
            raise ValueError(f"a position in {self.from_} has more than a north and an east value; "
                             f"pass {', '.join(names)} to Conversion.fields")
        given = {names[pair[0]]: north, names[pair[1]]: east}
        for name, value in (("zone", from_zone), ("meridian", from_zone), ("hemisphere", from_hemisphere)):
            if value is not None and name in names:
                given[name] = value
        if from_zone is not None and not {"zone", "meridian"} & given.keys():
            raise ValueError(f"{self.from_} has no zones")
        if from_hemisphere is not None and "hemisphere" not in given:
            raise ValueError(f"{self.from_} has no hemispheres")
        if ("zone" in names or "meridian" in names) and from_zone is None:
            raise ValueError(f"positions in {self.from_} require a zone; pass from_zone")
        return self.fields(given, height=height, errors=errors)

    def fields(self, fields: Mapping[str, Any] | tuple[Any, ...], *, height: Any = None, errors: Errors = "raise") -> Any:
        """Converts positions from the fields of the source: a mapping, or the result of a conversion.

        >>> there = convert(48.1375, 11.5755, to="UTMREF")
        >>> Conversion("UTMREF", "GEODEZ").fields(there)
        GEODEZ(latitude=48.1374..., longitude=11.5755...)
        """
        check_errors(errors)
        if not isinstance(fields, Mapping) and not hasattr(fields, "_asdict"):
            raise TypeError(f"fields must be a mapping or the result of a conversion, not {type(fields).__name__}")
        given: dict[str, Any] = dict(fields) if isinstance(fields, Mapping) else fields._asdict()
        height = given.pop("height", None) if height is None else height
        unknown = given.keys() - set(self.source_fields)
        if unknown:
            raise ValueError(f"{self.from_} has no field {sorted(unknown)[0]!r}; expected one of {', '.join(self.source_fields)}")
        if not given:
            raise ValueError(f"missing fields; pass {', '.join(self.source_fields)}")
        columns: dict[str, npt.NDArray[Any]] = {}
        for name, kind in zip(self.source_fields, self._core.source_types):
            if name in given:
                letters = kind.partition("U")[2]
                value = given[name]
                columns[name] = texts(value, name, int(letters)) if letters else numbers(value, name)
        if height is not None:
            columns["height"] = numbers(height, "height")
        shape, arrays = broadcast(*columns.values())
        shaped = dict(zip(columns, arrays))
        fields_in_order = [shaped.get(name) for name in self.source_fields]
        made = self._core.arrays(shape, fields_in_order, shaped.get("height"), errors)

        has_height = self._core.gives_height and (height is not None or self._core.knows_height)
        form = form_of((*given.values(), height))
        if errors != "status":
            return tuple.__new__(self._with_height if has_height else self._plain, map(form, made))
        names = self.target_fields + (("height",) if has_height else ()) + ("status",)
        return tuple.__new__(result_type(self._name, names), map(form, made))


@lru_cache(maxsize=256)
def _prepare(from_: str, to: str, zone: int | None) -> Conversion:
    return Conversion(from_, to, zone=zone)


def convert(
    north: Any,
    east: Any,
    height: Any = None,
    *,
    from_: str = WGS84_DEGREES,
    to: str = WGS84_UTM,
    zone: int | None = None,
    from_zone: Any = None,
    from_hemisphere: Any = None,
    errors: Errors = "raise",
) -> Any:
    """Converts positions to another coordinate system and datum.

    north, east: latitudes and longitudes in degrees, or northings and eastings in metres: numbers, arrays of any
        shapes that broadcast, lists, pandas Series.
    height: metres above the ellipsoid. It is copied to the result; ECEF contains it in x, y and z.
    from_, to: SYSTEM or SYSTEM@DATUM; `systems()` and `datums()` list them. Free projections have parameters:
        "TM:lon0=9,k=0.9996,fe=500000".
    zone: the wanted zone, strip or meridian of the target. Without it each position is converted to its natural zone.
    from_zone, from_hemisphere: the zone and hemisphere of UTM positions; the default hemisphere is "N". For Austrian
        grids, from_zone is the meridian.
    errors: the treatment of positions without a result. "raise" raises PositionError with the index of the position;
        "nan" returns NaN, 0 and "" for it; "status" does the same and adds the field `status`, which is 1 for success.
        With "status", a position far from the wanted zone keeps its numbers.

    The result is a named tuple of the target's fields: numbers and texts for a single position, arrays for arrays,
    Series with the same index for Series.

    >>> convert(48.1375, 11.5755)
    UTM(zone=32, hemisphere='N', easting=691602.659..., northing=5334791.144...)
    >>> convert([48.1375, 52.5], [11.5755, 13.4]).zone
    array([32, 33], dtype=int16)
    >>> convert(5334791.1445, 691602.6597, from_="UTM", from_zone=32, to="GEODEZ")
    GEODEZ(latitude=48.13749..., longitude=11.57550...)
    >>> convert([48.1375, 91.0], 11.5755, errors="status").status
    array([    1, -3762], dtype=int32)
    """
    return _prepare(from_, to, zone)(
        north, east, height, from_zone=from_zone, from_hemisphere=from_hemisphere, errors=errors
    )
