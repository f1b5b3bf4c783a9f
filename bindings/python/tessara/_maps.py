"""Maps: pixels and positions, grids, and the picture."""

from __future__ import annotations

import json
from os import PathLike
from pathlib import Path
from typing import Any, Literal, NamedTuple

import numpy as np

from . import _tessara
from ._areas import Extent, Line, degree_rows, extent_in
from ._arrays import broadcast, form_of, numbers
from ._conversion import WGS84_DEGREES, Errors, check_errors, result_type

Straight = Literal["geodesic", "map", "degrees"]
STRAIGHT = ("geodesic", "map", "degrees")

# An array that repeats one number in memory can have more items than fit into a list.
MOST_NUMBERS = 10_000_000


class Grid(NamedTuple):
    """The lines of equal east and of equal north value, each rows of latitude and longitude."""

    east_lines: list[Line]
    north_lines: list[Line]


def _plain(value: Any) -> Any:
    """What JSON has no word for: arrays and numbers of NumPy, paths."""
    if isinstance(value, (np.ndarray, np.generic)):
        if value.size > MOST_NUMBERS:
            raise ValueError(f"an array of a description has at most {MOST_NUMBERS} numbers, not {value.size}")
        return value.tolist()
    if isinstance(value, PathLike):
        return str(value)
    raise TypeError(f"a description of a map has no place for {type(value).__name__}")


class Map:
    """A map: a projection tied to pixels, a window of it, and layers to draw.

    The keys of a description are keyword arguments; `docs/map.md` lists them. In a notebook a map is its picture.

    >>> sheet = Map.around(48.1375, 11.5755, metres=20000)
    >>> column, row = sheet.pixels(48.1375, 11.5755)
    >>> round(column), round(row)
    (500, 400)
    """

    def __init__(self, description: dict[str, Any] | None = None, *, directory: str | PathLike[str] = "", **keys: Any):
        self._description: dict[str, Any] = {**(description or {}), **keys}
        self._description["layers"] = list(self._description.get("layers", []))
        self._directory = str(directory)
        self._core = self._make()

    @classmethod
    def read(cls, file: str | PathLike[str]) -> Map:
        """The map of a description in a JSON file."""
        return cls(json.loads(Path(file).read_text(encoding="utf-8")), directory=Path(file).parent)

    @classmethod
    def around(cls, lat: float, lon: float, *, metres: float = 10000.0, **keys: Any) -> Map:
        """A map of the surroundings of a place in WGS84 degrees, 10 to 40 million metres wide: a projection and layers that
        fit them, as `tessara map --around` draws them. Keys replace those of its description; `layers=[]` leaves the
        place's own layers away.

        >>> [layer["type"] for layer in Map.around(48.1375, 11.5755, metres=1_000_000).description["layers"]]
        ['coast', 'grid', 'positions']
        """
        around = json.loads(_tessara.describe_map_around(lat, lon, metres))
        return cls(around, **keys)

    def _make(self) -> _tessara.Map:
        return _tessara.Map(json.dumps(self._description, default=_plain), self._directory)

    def __reduce__(self) -> tuple[Any, ...]:
        return _map_of, (self._description, self._directory)

    def __repr__(self) -> str:
        projection = self._description.get("projection", {})
        return f"Map({projection.get('type')}, {len(self._description['layers'])} layers)"

    @property
    def description(self) -> dict[str, Any]:
        """The description, as `tessara map` reads it from JSON."""
        return json.loads(json.dumps(self._description, default=_plain))  # type: ignore[no-any-return]

    @property
    def datum(self) -> str:
        """The datum that the map is drawn on."""
        return self._core.datum

    def add(self, type: str, **keys: Any) -> Map:
        """Adds a layer: `add("grid", system="UTM", step=1000)`. Gives the map itself."""
        layers: list[Any] = self._description["layers"]
        layers.append({"type": type, **keys})
        try:
            self._core = self._make()
        except Exception:
            layers.pop()
            raise
        return self

    def svg(self, size: float = 1000.0) -> str:
        """The picture, the longer side of its window so many units long."""
        if not 100.0 <= size <= 20000.0:
            raise ValueError("the size of a picture lies in 100..20000")
        return self._core.draw(size)[0]

    def problems(self) -> list[str]:
        """What can't be drawn."""
        return self._core.draw(1000.0)[1]

    def _repr_svg_(self) -> str:
        return self.svg()

    def pixels(self, lat: Any, lon: Any, *, datum: str = "WGS84", errors: Errors = "raise") -> Any:
        """The columns and rows of positions in degrees. They may lie beside the window."""
        return self._solve(self._core.pixels, "Pixel", ("column", "row"), {"lat": lat, "lon": lon}, datum, errors)

    def places(self, column: Any, row: Any, *, datum: str = "WGS84", errors: Errors = "raise") -> Any:
        """The latitudes and longitudes of pixels."""
        given = {"column": column, "row": row}
        return self._solve(self._core.places, "Place", ("latitude", "longitude"), given, datum, errors)

    @staticmethod
    def _solve(solve: Any, name: str, fields: tuple[str, ...], given: dict[str, Any], datum: str, errors: Errors) -> Any:
        check_errors(errors)
        shape, arrays = broadcast(*(numbers(value, key) for key, value in given.items()))
        made = solve(shape, *arrays, datum, errors)
        names = fields + (("status",) if errors == "status" else ())
        return tuple.__new__(result_type(name, names), map(form_of(given.values()), made))

    def grid(self, system: str, step: float, north_step: float | None = None, *, datum: str = "WGS84") -> Grid:
        """The lines of a coordinate grid over the window, `step` apart in units of the system."""
        return Grid(*self._core.grid(system, step, step if north_step is None else north_step, datum))

    def extent(self, to: str = WGS84_DEGREES) -> Extent:
        """How far the window reaches in a system."""
        return extent_in(to, self._core.extent(to))

    def densify(self, line: Any, straight: Straight = "geodesic", *, datum: str = "WGS84") -> Line:
        """The line with so many points that it lies within a quarter of a pixel of what it stands for: geodesics, lines
        that are straight on the map, or lines that are straight in degrees. `line` and the result are rows of latitude
        and longitude."""
        if straight not in STRAIGHT:
            raise ValueError(f"straight is one of {', '.join(STRAIGHT)}, not {straight!r}")
        return self._core.densify(degree_rows(line, "line"), datum, straight)


def _map_of(description: dict[str, Any], directory: str) -> Map:
    return Map(description, directory=directory)
