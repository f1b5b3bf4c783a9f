"""Arguments that no function expects, and calls of every function with them.

`python hostile.py SECONDS [SEED]` makes random calls for a time. Each call has a result or raises an exception of the kinds
below, within a time limit, and leaves its arguments alive.
"""

from __future__ import annotations

import contextlib
import datetime
import decimal
import faulthandler
import fractions
import gc
import inspect
import math
import random
import sys
import time
import warnings

import geopandas
import numpy as np
import pandas as pd

import tessara
import tessara.geo
import tessara.pandas

# Seconds after which the process ends with a traceback. With sanitizers the calls of one function take a minute.
SLOWEST_CALL = 60
SLOWEST_CALLS = 600


class Hostile(Exception):
    """Raised by arguments."""


# A file or a column may be missing; all else is of the first kinds, or raised by an argument.
EXPECTED = (TypeError, ValueError, OverflowError, MemoryError, RecursionError, KeyError, OSError, Hostile, decimal.InvalidOperation)


def fail(*_args, **_keys):
    raise Hostile


class RaisingArray:
    __array__ = fail


class RaisingFloat:
    __float__ = fail


class RaisingIndex:
    __index__ = fail


class RaisingLength:
    __len__ = fail
    __getitem__ = fail


class RaisingIterator:
    __iter__ = fail


class RaisingEverything:
    def __getattribute__(self, name):
        raise Hostile


class RaisingText(str):
    __str__ = __hash__ = __eq__ = encode = split = fail


class RaisingList(list):
    __iter__ = __len__ = __getitem__ = fail


class RaisingDict(dict):
    __iter__ = keys = items = __getitem__ = __len__ = fail


class RaisingNumber(float):
    __float__ = __index__ = __eq__ = __hash__ = __le__ = __ge__ = fail


class RaisingSubclass(np.ndarray):
    def __array_finalize__(self, other):
        if other is not None and getattr(other, "flags", None) is not None and type(other) is RaisingSubclass:
            raise Hostile

    def __getitem__(self, key):
        raise Hostile

    astype = fail


class ArrayOfItself:
    def __array__(self, *_args, **_keys):
        return self


class ArrayOfText:
    def __array__(self, *_args, **_keys):
        return np.array(["48"])


class ArrayOfAnotherSize:
    """Another array each time it is asked."""

    count = 0

    def __array__(self, *_args, **_keys):
        self.count += 1
        return np.zeros(self.count)


class NaNByFloat:
    def __float__(self):
        return math.nan


class TextByFloat:
    def __float__(self):
        return "48"


class HugeIndex:
    def __index__(self):
        return 10**40


class ItsOwnItem:
    """Consists of itself."""

    def __len__(self):
        return 1

    def __getitem__(self, index):
        if index > 0:
            raise IndexError
        return self


class ShrinkingList(list):
    def __getitem__(self, index):
        item = super().__getitem__(index)
        self.clear()
        return item


class ClearsItsList:
    """A number that empties the list in which it stands, when it is read."""

    def __init__(self, owner):
        self.owner = owner

    def __float__(self):
        self.owner.clear()
        gc.collect()
        return 48.0


class OverwritesItsArray:
    """A number that changes the array in which it stands."""

    def __init__(self, owner):
        self.owner = owner

    def __float__(self):
        self.owner[:] = None
        gc.collect()
        return 48.0


class RefusesReferences:
    def __init__(self):
        self.itself = self

    def __reduce__(self):
        raise Hostile

    def __repr__(self):
        raise Hostile


class Fields(tuple):
    def _asdict(self):
        return {"easting": self, 7: None, "zone": [self]}


def list_that_clears_itself():
    made = [48.0, 11.0]
    made[0] = ClearsItsList(made)
    return made


def array_that_overwrites_itself():
    made = np.array([48.0, None, 11.0], dtype=object)
    made[0] = OverwritesItsArray(made)
    return made


def nested(depth):
    made = 48.0
    for _ in range(depth):
        made = [made]
    return made


def unaligned():
    return np.frombuffer(bytes(8 * 5 + 1), dtype="u1")[1:].view("<f8")


def masked():
    return np.ma.masked_invalid([48.0, np.nan, 11.0])


def recursive_list():
    made = []
    made.append(made)
    return made


def recursive_dict():
    made = {}
    made["latitude"] = made["layers"] = made
    return made


# Each makes a new value, since a call may change or keep it.
VALUES = {
    "None": lambda: None,
    "True": lambda: True,
    "zero": lambda: 0,
    "minus zero": lambda: -0.0,
    "one": lambda: 1,
    "minus one": lambda: -1,
    "NaN": lambda: math.nan,
    "infinity": lambda: math.inf,
    "largest": lambda: 1.7976931348623157e308,
    "smallest": lambda: 5e-324,
    "2**31": lambda: 2**31,
    "2**63": lambda: 2**63,
    "-2**63 - 1": lambda: -2**63 - 1,
    "10**400": lambda: 10**400,
    "complex": lambda: 1j,
    "Decimal": lambda: decimal.Decimal("48.1"),
    "Decimal NaN": lambda: decimal.Decimal("sNaN"),
    "Fraction": lambda: fractions.Fraction(481, 10),
    "date": lambda: datetime.date(2020, 1, 1),
    "empty text": lambda: "",
    "text": lambda: "48",
    "zero byte": lambda: "UTM\0",
    "surrogate": lambda: "UTM\ud800",
    "long text": lambda: "9" * 100_000,
    "many blanks": lambda: "48 " * 30_000,
    "format": lambda: "%s%n{0}",
    "letters": lambda: "\u0416\u4e2d\U0001f600\u200b",
    "brackets": lambda: "TM:lon0=((((",
    "parameters": lambda: "TM:" + ",".join(["k=1"] * 5000),
    "datum": lambda: "@",
    "bytes": lambda: b"48",
    "bytearray": lambda: bytearray(8),
    "memoryview": lambda: memoryview(bytes(64)),
    "released memoryview": lambda: _released(),
    "object": object,
    "type": lambda: float,
    "function": lambda: fail,
    "Ellipsis": lambda: ...,
    "NotImplemented": lambda: NotImplemented,
    "generator": lambda: (float(i) for i in range(3)),
    "iterator": lambda: iter([1.0]),
    "range": lambda: range(3),
    "set": lambda: {48.0},
    "empty list": list,
    "empty tuple": tuple,
    "empty dict": dict,
    "dict": lambda: {"a": 1},
    "ragged": lambda: [[1.0], [1.0, 2.0]],
    "deep list": lambda: nested(40),
    "very deep list": lambda: nested(5000),
    "recursive list": recursive_list,
    "recursive dict": recursive_dict,
    "two rows": lambda: [(48, 11), (49, 12)],
    "one row": lambda: [(48, 11)],
    "triples": lambda: [(1, 2, 3)],
    "NaN rows": lambda: np.full((5, 2), np.nan),
    "infinite rows": lambda: np.full((5, 2), np.inf),
    "equal rows": lambda: np.full((50, 2), 48.0),
    "huge rows": lambda: np.full((5, 2), 1e308),
    "a hundred rows": lambda: np.random.default_rng(1).uniform(-80, 80, (100, 2)),
    "poles": lambda: [(90, 0), (-90, 0), (90, 180)],
    "no rows": lambda: np.zeros((0, 2)),
    "float16": lambda: np.float16(48.1),
    "longdouble": lambda: np.longdouble("48.1"),
    "numpy text": lambda: np.str_("48"),
    "numpy bytes": lambda: np.bytes_(b"48"),
    "void": lambda: np.void(b"abcdefgh"),
    "no dimension": lambda: np.array(48.0),
    "empty": lambda: np.zeros(0),
    "empty rows": lambda: np.zeros((0, 3)),
    "empty columns": lambda: np.zeros((3, 0)),
    "three": lambda: np.array([48.0, -33.0, np.nan]),
    "32 dimensions": lambda: np.zeros((1,) * 32),
    "backward": lambda: np.arange(9.0)[::-2],
    "zero strides": lambda: np.broadcast_to(48.0, (7, 5)),
    "big-endian": lambda: np.arange(5, dtype=">f8"),
    "unaligned": unaligned,
    "Fortran": lambda: np.asfortranarray(np.zeros((3, 4))),
    "structured": lambda: np.zeros(3, dtype=[("a", "f8"), ("b", "O")]),
    "int8": lambda: np.array([-128, 127], dtype="i1"),
    "uint64": lambda: np.array([2**64 - 1], dtype="u8"),
    "bool": lambda: np.array([True, False]),
    "complex array": lambda: np.array([1j]),
    "times": lambda: np.array(["2020-01-01", "NaT"], dtype="M8[s]"),
    "differences": lambda: np.array([1], dtype="m8[D]"),
    "texts": lambda: np.array(["32UPU9160234791", "", "x"]),
    "texts of no length": lambda: np.zeros(3, dtype="U0"),
    "long texts": lambda: np.array(["U" * 1000]),
    "byte texts": lambda: np.array([b"48", b""]),
    "objects": lambda: np.array([48.0, None, "x", object()], dtype=object),
    "objects None": lambda: np.array([None, None]),
    "text objects": lambda: np.array(["N", None], dtype=object),
    "nested objects": lambda: np.array([np.zeros(2), None], dtype=object),
    "signalling NaN": lambda: np.array([0x7FF0000000000001], dtype="u8").view("f8"),
    "read-only": lambda: _read_only(),
    "masked": masked,
    "all masked": lambda: np.ma.masked_all(3),
    "matrix": lambda: np.array([[48.0, 11.0]]).view(np.matrix),
    "records": lambda: np.rec.array([(1.0, 2.0)]),
    "subclass": lambda: np.zeros((3, 2)).view(RaisingSubclass),
    "more than memory": lambda: np.broadcast_to(48.0, (1 << 20, 1 << 20, 16)),
    "Series": lambda: pd.Series([48.0, np.nan], index=["a", "a"]),
    "integer Series": lambda: pd.Series([1, None], dtype="Int64"),
    "text Series": lambda: pd.Series(["48", None], dtype="string"),
    "categories": lambda: pd.Series(["a", "b"]).astype("category"),
    "empty Series": lambda: pd.Series([], dtype=float),
    "object Series": lambda: pd.Series([object(), None]),
    "dated Series": lambda: pd.Series([1.0], index=pd.DatetimeIndex(["2020-01-01"])),
    "DataFrame": lambda: pd.DataFrame({"lat": [48.0], "lon": [11.0]}),
    "points": lambda: geopandas.GeoSeries.from_xy([11.0], [48.0], crs=4326),
    "Index": lambda: pd.Index([48.0]),
    "raising array": RaisingArray,
    "raising float": RaisingFloat,
    "raising index": RaisingIndex,
    "raising length": RaisingLength,
    "raising iterator": RaisingIterator,
    "raising everything": RaisingEverything,
    "raising text": lambda: RaisingText("UTM"),
    "raising list": lambda: RaisingList([1.0]),
    "raising dict": lambda: RaisingDict(zone=32),
    "raising number": lambda: RaisingNumber(48.0),
    "array of itself": ArrayOfItself,
    "array of text": ArrayOfText,
    "another size": ArrayOfAnotherSize,
    "NaN by float": NaNByFloat,
    "text by float": TextByFloat,
    "huge index": HugeIndex,
    "its own item": ItsOwnItem,
    "shrinking": lambda: ShrinkingList([1.0, 2.0]),
    "clears itself": list_that_clears_itself,
    "overwrites itself": array_that_overwrites_itself,
    "without repr": RefusesReferences,
    "list of raising": lambda: [48.0, RaisingFloat()],
    "list of its own item": lambda: [ItsOwnItem()],
    "fields": lambda: Fields((1, 2)),
    "objects raising": lambda: np.array([RaisingFloat(), 1.0], dtype=object),
}


def _released():
    made = memoryview(bytes(8))
    made.release()
    return made


def _read_only():
    made = np.array([48.0, 11.0])
    made.flags.writeable = False
    return made


SQUARE = [(48, 11), (49, 11), (49, 12), (48, 12)]
SHEET = {"projection": {"type": "UTM", "zone": 32, "hemisphere": "N", "originEasting": 660000, "originNorthing": 5340000},
         "scale": 500000, "resolution": 10, "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}}
FRAME = {"lat": [48.0, 52.0], "lon": [11.0, 13.0], "name": ["a", "b"]}
AREA = {"south": 47.0, "west": 5.0, "north": 55.0, "east": 16.0}


def frame():
    return pd.DataFrame(FRAME).tessara


def places():
    return geopandas.GeoSeries.from_xy([11.0, 13.0], [48.0, 52.0], crs=4326)


# Each function with arguments that it takes, of which one or more are replaced.
CALLS = {
    "convert": (tessara.convert, dict(north=48.1, east=11.5, height=None, from_="WGS84", to="UTM", zone=None, from_zone=None, from_hemisphere=None, errors="nan") | {"from_": "GEODEZ"}),
    "convert UTM": (tessara.convert, dict(north=5334791.0, east=691602.0, height=5.0, from_="UTM", to="ECEF", from_zone=32, from_hemisphere="N", errors="status")),
    "Conversion": (tessara.Conversion, dict(from_="GEODEZ", to="UTM", zone=33)),
    "Conversion.__call__": (lambda **keys: tessara.Conversion()(**keys), dict(north=[48.0], east=[11.0], height=[1.0], from_zone=None, from_hemisphere=None, errors="raise")),
    "Conversion.fields": (lambda **keys: tessara.Conversion("UTMREF", "GEODEZ").fields(**keys),
                          dict(fields={"zone": 32, "band": "U", "square": "PU", "easting": 91603, "northing": 34791}, height=None, errors="nan")),
    "fields one by one": (lambda errors, **keys: tessara.Conversion("UTMREF", "GEODEZ").fields(keys, errors=errors),
                          dict(zone=32, band="U", square="PU", easting=91603, northing=34791, height=1.0, errors="status")),
    "distance": (tessara.distance, dict(lat1=48.0, lon1=11.0, lat2=52.0, lon2=13.0, datum="WGS84", errors="nan")),
    "direct": (tessara.direct, dict(lat=48.0, lon=11.0, azimuth=90.0, distance=1000.0, datum="WGS84", errors="nan")),
    "zones": (tessara.zones, dict(lat=48.0, lon=11.0, system="UTM", datum="WGS84", errors="nan")),
    "convergence_and_scale": (tessara.convergence_and_scale, dict(lat=48.0, lon=11.0, system="UTM", datum="WGS84", zone=32, errors="nan")),
    "extent": (tessara.extent, dict(line=SQUARE, to="UTM", datum="WGS84")),
    "densify": (tessara.densify, dict(line=SQUARE, straight_in="UTM", datum="WGS84")),
    "point_in_polygon": (tessara.point_in_polygon, dict(lat=48.5, lon=11.5, polygon=SQUARE, datum="WGS84")),
    "overlay": (tessara.overlay, dict(first=SQUARE, second=SQUARE, datum="WGS84")),
    "parse": (tessara.parse, dict(texts=["32UPU9160234791"], system="auto", datum="WGS84", errors="nan")),
    "check": (tessara.check, dict(text="32UPU9160234791", system="auto", datum="WGS84")),
    "format": (tessara.format, dict(north=48.1, east=11.5, from_="GEODEZ", to="UTMREF", zone=None, precision=10, display=False, truncate=True, errors="nan")),
    "format display": (tessara.format, dict(north=[48.1], east=11.5, to="UTM", zone=32, precision=0.001, display=True, truncate=False, errors="raise")),
    "to_pyproj": (tessara.to_pyproj, dict(reference="UTM", zone=32, hemisphere="N")),
    "status_text": (tessara.status_text, dict(status=-3708)),
    "systems": (tessara.systems, dict(frame=True)),
    "datums": (tessara.datums, dict(frame=False)),
    "PositionError": (lambda **keys: str(tessara.PositionError(**keys)), dict(status=1, reason="x", index=None)),
    "TextError": (lambda **keys: str(tessara.TextError(**keys)), dict(code="a", reason="b", piece="c", begin=0, index=(1,))),
    "Map": (lambda **keys: tessara.Map(**keys).svg(200), dict(description=SHEET, directory="", layers=[{"type": "coast"}], datum="WGS84", window=SHEET["window"], scale=500000)),
    "Map.read": (tessara.Map.read, dict(file="/dev/null")),
    "Map.around": (lambda **keys: tessara.Map.around(**keys), dict(lat=48.0, lon=11.0, metres=20000.0, layers=[])),
    "Map.add": (lambda **keys: tessara.Map(SHEET).add(**keys).svg(200), dict(type="positions", places=[[48.1, 11.5]], name="x")),
    "Map.add grid": (lambda **keys: tessara.Map(SHEET).add("grid", **keys).problems(), dict(system="UTM", step=10000)),
    "Map.add rings": (lambda **keys: tessara.Map(SHEET).add("rings", **keys).svg(200), dict(centre=[48.1, 11.5], radii=[1000])),
    "Map.svg": (lambda **keys: tessara.Map(SHEET).svg(**keys), dict(size=500.0)),
    "Map.problems": (lambda **keys: tessara.Map({**SHEET, **keys}).problems(), dict(layers=[], window=SHEET["window"], resolution=10)),
    "Map.pixels": (lambda **keys: tessara.Map(SHEET).pixels(**keys), dict(lat=48.1, lon=11.5, datum="WGS84", errors="nan")),
    "Map.places": (lambda **keys: tessara.Map(SHEET).places(**keys), dict(column=48.1, row=11.5, datum="WGS84", errors="nan")),
    "Map.grid": (lambda **keys: tessara.Map(SHEET).grid(**keys), dict(system="UTM", step=10000, north_step=None, datum="WGS84")),
    "Map.extent": (lambda **keys: tessara.Map(SHEET).extent(**keys), dict(to="UTM")),
    "Map.densify": (lambda **keys: tessara.Map(SHEET).densify(**keys), dict(line=SQUARE, straight="geodesic", datum="WGS84")),
    "accessor.convert": (lambda **keys: frame().convert(**keys), dict(lat="lat", lon="lon", to="UTM", height=None, from_="GEODEZ", zone=None, from_zone=None, from_hemisphere=None, errors="nan")),
    "accessor.references": (lambda **keys: frame().references(**keys), dict(lat="lat", lon="lon", precision=1.0, errors="nan")),
    "accessor.zones": (lambda **keys: frame().zones(**keys), dict(lat="lat", lon="lon", system="UTM", errors="nan")),
    "accessor.distance": (lambda **keys: frame().distance(**keys), dict(to=(48.0, 11.0), lat="lat", lon="lon", errors="nan")),
    "geo.references": (lambda **keys: tessara.geo.references(places(), **keys), dict(precision=1.0, errors="nan")),
    "geo.convert_points": (lambda **keys: tessara.geo.convert_points(places(), **keys), dict(to="UTMREF", zone=None, errors="nan")),
    "geo.grid_lines": (lambda **keys: tessara.geo.grid_lines(tessara.Map(SHEET), **keys), dict(system="UTM", step=10000, north_step=None)),
    "geo.zone_borders": (tessara.geo.zone_borders, AREA | dict(system="UTM")),
}


def public_names():
    """The functions and methods that a user can call."""
    for name in tessara.__all__:
        thing = getattr(tessara, name)
        if inspect.isfunction(thing):
            yield name
        if name in ("Map", "Conversion"):
            yield name
            for method, _ in inspect.getmembers(thing, lambda member: inspect.isfunction(member) or inspect.ismethod(member)):
                if not method.startswith("_"):
                    yield f"{name}.{method}"
    for prefix, thing in (("geo", tessara.geo), ("accessor", tessara.pandas.TessaraAccessor)):
        for name, function in inspect.getmembers(thing, inspect.isfunction):
            if not name.startswith("_") and function.__module__ == thing.__name__ or prefix == "accessor" and not name.startswith("_"):
                yield f"{prefix}.{name}"


@contextlib.contextmanager
def time_limit(seconds):
    """Ends the process with a traceback if what is done within takes longer."""
    faulthandler.dump_traceback_later(seconds, exit=True)
    try:
        yield
    finally:
        faulthandler.cancel_dump_traceback_later()


def call(name, replaced):
    """Calls a function with some of its arguments replaced. Returns what is wrong, or nothing."""
    function, harmless = CALLS[name]
    try:
        with warnings.catch_warnings(), np.errstate(all="ignore"):
            warnings.simplefilter("ignore")
            function(**{**harmless, **replaced})
    except EXPECTED:
        return None
    except Exception as error:
        return f"{name}: {type(error).__name__}: {str(error)[:200]}"
    return None


def random_array(generator):
    """An array of any type, shape and strides."""
    dtype = generator.choice(["f8", ">f8", "f4", "f2", "i1", "i8", "u8", "?", "O", "U3", "S2", "c16", "M8[s]", "V8", "g"])
    shape = [generator.choice([0, 1, 1, 2, 3, 7]) for _ in range(generator.randrange(4))]
    size = math.prod(shape)
    if dtype in ("f8", ">f8", "f4", "f2", "g"):
        numbers = [generator.choice([math.nan, math.inf, -math.inf, 0.0, -0.0, 90.0, -90.0, 180.0, 84.0, generator.uniform(-200, 200), generator.uniform(-1e7, 1e7)])
                   for _ in range(size)]
        with np.errstate(all="ignore"):
            made = np.array(numbers, dtype="f8").astype(dtype).reshape(shape)
    elif dtype == "O":
        made = np.empty(shape, dtype=object)
        for i in range(size):
            made.flat[i] = VALUES[generator.choice(SMALL)]()
    else:
        made = np.frombuffer(generator.randbytes(size * np.dtype(dtype).itemsize), dtype="u1").view(dtype).reshape(shape) if size and dtype not in ("?", "U3") else np.zeros(shape, dtype)
    if made.ndim and generator.random() < 0.3:
        made = made[::-1]
    if made.ndim > 1 and generator.random() < 0.3:
        made = made.T
    return made


# Of these, arrays of objects consist.
SMALL = ["None", "True", "zero", "NaN", "infinity", "2**63", "10**400", "complex", "Decimal", "text", "empty text", "bytes", "object", "raising float", "NaN by float", "text by float", "huge index", "empty list"]


# A sanitizer, which counts the library's objects, ends the process where C++ runs out of memory.
AT_RANDOM = [name for name in VALUES if name != "more than memory"]
EVERYWHERE = AT_RANDOM if hasattr(tessara._tessara, "living_objects") else list(VALUES)


def random_text(generator):
    return "".join(generator.choice("0123456789 .,:;@=-+NSEWUTMGKR\u00b0'\"\0\ud800\u4e2d%{}()/\\\n") for _ in range(generator.randrange(30)))


def random_argument(generator):
    kind = generator.randrange(4)
    if kind == 0:
        return random_array(generator)
    if kind == 1:
        return random_text(generator)
    if kind == 2:
        return generator.choice([generator.uniform(-100, 100), generator.uniform(-1e7, 1e7), generator.randrange(-5, 130)])
    return VALUES[generator.choice(AT_RANDOM)]()


def call_at_random(generator):
    name = generator.choice(list(CALLS))
    arguments = CALLS[name][1]
    replaced = {argument: random_argument(generator) for argument in arguments if generator.random() < 1.5 / len(arguments)}
    return call(name, replaced)


def main(seconds, seed):
    generator = random.Random(seed)
    end = time.monotonic() + seconds
    calls = 0
    wrong = {}
    while time.monotonic() < end:
        calls += 1
        with time_limit(SLOWEST_CALL):
            found = call_at_random(generator)
        if found:
            wrong.setdefault(found[:60], f"call {calls}: {found}")
    print(f"{calls} calls with seed {seed}, {len(wrong)} kinds of unexpected exceptions")
    for found in wrong.values():
        print(found)
    return 1 if wrong else 0


if __name__ == "__main__":
    faulthandler.enable()
    sys.exit(main(float(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else random.SystemRandom().randrange(2**32)))
