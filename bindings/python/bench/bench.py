"""Times beside pyproj: the table of docs/python.md. Each figure is the least time of the processor of some runs, in which
both sides take turns, on one thread. Time in which other programs have the processor doesn't count. Only the gain of a second
thread is taken by the clock, so it needs two free cores."""

import shutil
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor
from resource import RUSAGE_CHILDREN, RUSAGE_SELF, getrusage

import numpy as np
import pyproj

import tessara

POSITIONS = 1_000_000
SINGLES = 20_000
RUNS = 7


def processor_seconds():
    """Of this process and of those that it started and that have ended."""
    uses = map(getrusage, (RUSAGE_SELF, RUSAGE_CHILDREN))
    return sum(use.ru_utime + use.ru_stime for use in uses)


def seconds(operation):
    start = processor_seconds()
    operation()
    return processor_seconds() - start


def in_turns(ours, theirs=None, runs=RUNS):
    """The least times of both; none for a peer that isn't there."""
    both = [(seconds(ours), seconds(theirs) if theirs else None) for _ in range(runs)]
    return tuple(min(times) if all(times) else None for times in zip(*both))


def pyproj_all_zones(latitudes, longitudes):
    """What users of pyproj do: a transformer a zone, and the positions sorted among them."""
    zones = ((longitudes + 180) // 6).astype(int) + 1
    east, north = np.empty_like(latitudes), np.empty_like(latitudes)
    for zone in range(1, 61):
        here = zones == zone
        to_zone = pyproj.Transformer.from_crs(4326, 32600 + zone)
        east[here], north[here] = to_zone.transform(latitudes[here], longitudes[here])
    return east, north


def geoconvert_references(latitudes, longitudes):
    """GeographicLib's program, texts in and out: no package of Debian has its references for Python."""
    if shutil.which("GeoConvert") is None:
        return None
    lines = "".join(f"{latitude:.9f} {longitude:.9f}\n" for latitude, longitude in zip(latitudes, longitudes)).encode()
    return lambda: subprocess.run(["GeoConvert", "-m", "-p", "0"], input=lines, stdout=subprocess.DEVNULL, check=True)


def rows():
    random = np.random.default_rng(1)
    latitudes = random.uniform(1, 80, POSITIONS)
    here = random.uniform(6.01, 11.99, POSITIONS)
    everywhere = random.uniform(-179.99, 179.99, POSITIONS)

    to_utm = pyproj.Transformer.from_crs(4326, 32632)
    from_utm = pyproj.Transformer.from_crs(32632, 4326)
    grid = tessara.convert(latitudes, here)
    yield "a million positions to UTM, one zone", *in_turns(
        lambda: tessara.convert(latitudes, here),
        lambda: to_utm.transform(latitudes, here),
    )
    yield "a million positions from UTM, one zone", *in_turns(
        lambda: tessara.convert(grid.northing, grid.easting, from_="UTM", from_zone=32, to="GEODEZ"),
        lambda: from_utm.transform(grid.easting, grid.northing),
    )
    yield "a million positions to UTM, all zones", *in_turns(
        lambda: tessara.convert(latitudes, everywhere),
        lambda: pyproj_all_zones(latitudes, everywhere),
        runs=3,
    )
    yield "a million positions to UTMREF, as fields", *in_turns(lambda: tessara.convert(latitudes, here, to="UTMREF"))

    geoconvert = geoconvert_references(latitudes, here)
    yield f"a million military references{' (GeoConvert, as a process)' if geoconvert else ''}", *in_turns(
        lambda: tessara.format(latitudes, here),
        geoconvert,
        runs=3,
    )
    texts = tessara.format(latitudes[:100_000], here[:100_000]).tolist()
    yield "100 000 military references read", *in_turns(lambda: tessara.parse(texts))

    few = slice(0, 100_000)
    geodesics = pyproj.Geod(ellps="WGS84")
    yield "100 000 distances", *in_turns(
        lambda: tessara.distance(latitudes[few], here[few], 50.0, 8.0),
        lambda: geodesics.inv(here[few], latitudes[few], np.full(100_000, 8.0), np.full(100_000, 50.0)),
    )

    prepared = tessara.Conversion("GEODEZ", "UTM")
    singles = range(SINGLES)
    yield "20 000 single positions to UTM, prepared", *in_turns(
        lambda: [prepared(48.1375, 11.5755) for _ in singles],
        lambda: [to_utm.transform(48.1375, 11.5755) for _ in singles],
    )
    yield "20 000 single positions to UTM, by names", *in_turns(
        lambda: [tessara.convert(48.1375, 11.5755) for _ in singles],
        lambda: [to_utm.transform(48.1375, 11.5755) for _ in singles],
    )


def gain_of_a_second_thread():
    """How many times as much two threads convert in the same time by the clock as one: from the least times of some turns."""
    random = np.random.default_rng(2)
    latitudes, longitudes = random.uniform(1, 80, POSITIONS), random.uniform(-179.99, 179.99, POSITIONS)

    def convert(_):
        for _ in range(5):
            tessara.convert(latitudes, longitudes, to="UTMREF")

    def clock(threads):
        start = time.perf_counter()
        list(pool.map(convert, range(threads)))
        return time.perf_counter() - start

    with ThreadPoolExecutor(2) as pool:
        times = [(clock(1), clock(2)) for _ in range(RUNS)]
    alone, both = map(min, zip(*times))
    return 2 * alone / both


def main():
    print(f"tessara {tessara.__version__}, pyproj {pyproj.__version__}, PROJ {pyproj.proj_version_str}, NumPy {np.__version__}\n")
    print("| milliseconds | tessara | pyproj | ratio |")
    print("|:---|---:|---:|---:|")
    for what, ours, theirs in rows():
        right = f"{theirs * 1e3:.1f} | {ours / theirs:.2f}" if theirs else "- | -"
        print(f"| {what} | {ours * 1e3:.1f} | {right} |", flush=True)
    print(f"\nTwo threads convert {gain_of_a_second_thread():.2f} times as much as one, by the clock.")


if __name__ == "__main__":
    main()
