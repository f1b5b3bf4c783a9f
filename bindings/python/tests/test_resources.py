"""Threads and memory."""

import gc
import time
import tracemalloc
from concurrent.futures import ThreadPoolExecutor
from os import sched_getaffinity

import numpy as np
import pytest

import tessara

POSITIONS = 1_000_000


def seconds(operation):
    start = time.perf_counter()
    operation()
    return time.perf_counter() - start


def test_threads_get_the_results_of_one(rng):
    latitudes = rng.uniform(-79, 79, 100_000)
    longitudes = rng.uniform(-179, 179, 100_000)
    alone = tessara.convert(latitudes, longitudes, to="UTMREF")
    with ThreadPoolExecutor(4) as pool:
        for result in pool.map(lambda _: tessara.convert(latitudes, longitudes, to="UTMREF"), range(16)):
            assert all(np.array_equal(a, b) for a, b in zip(alone, result))


@pytest.mark.timing
@pytest.mark.skipif(len(sched_getaffinity(0)) < 2, reason="takes two cores")
def test_two_threads_convert_at_once(rng):
    latitudes = rng.uniform(-79, 79, POSITIONS)
    longitudes = rng.uniform(-179, 179, POSITIONS)

    def convert(_=None):
        tessara.convert(latitudes, longitudes, to="UTMREF")

    def twice():
        with ThreadPoolExecutor(2) as pool:
            list(pool.map(convert, range(2)))

    alone = min(seconds(convert) for _ in range(5))
    together = min(seconds(twice) for _ in range(5))
    assert 2 * alone / together > 1.8


def grown(operation, times):
    for _ in range(times // 10):
        operation()
    gc.collect()
    tracemalloc.start()
    before = tracemalloc.get_traced_memory()[0]
    for _ in range(times):
        operation()
    gc.collect()
    after = tracemalloc.get_traced_memory()[0]
    tracemalloc.stop()
    return after - before


def refused():
    try:
        tessara.convert(91.0, 11.0)
    except tessara.PositionError:
        pass


SQUARE = [(48, 11), (49, 11), (49, 12), (48, 12)]


SHEET = tessara.Map.around(48.1375, 11.5755)
PAGE = 4096
CALLS = [
    (lambda: tessara.convert(48.1375, 11.5755), 100_000),
    (lambda: tessara.convert([48.1375, 91], 11.5755, errors="status"), 10_000),
    (refused, 100_000),
    (lambda: tessara.distance(48, 11, 49, 12), 10_000),
    (lambda: tessara.zones(48, 11), 10_000),
    (lambda: tessara.format(48.0, 11.0, to="GEOGRAD"), 10_000),
    (lambda: tessara.check("32UPU9160334791"), 10_000),
    (lambda: SHEET.pixels(48, 11), 10_000),
    (lambda: tessara.point_in_polygon(48.5, 11.5, SQUARE), 10_000),
    (lambda: tessara.overlay(SQUARE, SQUARE), 2000),  # makes dozens of them
]


@pytest.mark.parametrize("operation, times", CALLS)
def test_no_object_of_python_is_left_behind(operation, times):
    # The smallest object takes 16 bytes; what the interpreter keeps of its own accord doesn't grow with the calls.
    assert grown(operation, times) < 8 * times


def resident():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * PAGE


@pytest.mark.parametrize("operation, times", CALLS)
def test_no_object_of_the_library_is_left_behind(operation, times):
    # An object of the library takes more than 100 bytes, so that one left by each of 10 000 calls is a mebibyte.
    for _ in range(times):
        operation()
    before = resident()
    for _ in range(times):
        operation()
    assert resident() - before < 1 << 20
