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


@pytest.mark.parametrize("operation, times", [
    (lambda: tessara.convert(48.1375, 11.5755), 100_000),
    (lambda: tessara.convert([48.1375, 91], 11.5755, errors="status"), 10_000),
    (refused, 100_000),
    (lambda: tessara.distance(48, 11, 49, 12), 10_000),
    (lambda: tessara.zones(48, 11), 10_000),
    (lambda: tessara.overlay(SQUARE, SQUARE), 200),
])
def test_nothing_is_left_behind(operation, times):
    # What the interpreter keeps of its own accord is less than a byte a call.
    assert grown(operation, times) < times
