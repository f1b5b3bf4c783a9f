"""Threads and memory."""

import gc
import time
import tracemalloc
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from threading import Barrier

import numpy as np
import pytest

import tessara

POSITIONS = 1_000_000
SCHEDULE = Path("/proc/thread-self/schedstat")
RUNS = 3

# Two threads that don't wait for each other do 1.8 to 2 times the work of one, two that take turns at most 1.1 times. A value
# in between separates them also on a busy machine, where other programs use the caches.
GAIN = 1.4

# Builds with sanitizers count the library's objects, and are slower by their watching.
living_objects = getattr(tessara._tessara, "living_objects", None)
SLOWNESS = 20 if living_objects else 1


def test_threads_get_the_results_of_one(rng):
    latitudes = rng.uniform(-79, 79, 100_000)
    longitudes = rng.uniform(-179, 179, 100_000)
    alone = tessara.convert(latitudes, longitudes, to="UTMREF")
    with ThreadPoolExecutor(4) as pool:
        for result in pool.map(lambda _: tessara.convert(latitudes, longitudes, to="UTMREF"), range(16)):
            assert all(np.array_equal(a, b) for a, b in zip(alone, result))


def seconds_in_queue():
    """How long the thread could have run and had no core, because other programs or threads had them."""
    return int(SCHEDULE.read_text().split()[1]) * 1e-9


def seconds(operation):
    """What the operation takes where each thread has a core: its computing, and its waiting for locks."""
    start, queued = time.perf_counter(), seconds_in_queue()
    operation()
    return time.perf_counter() - start - (seconds_in_queue() - queued)


def gain_of_a_second_thread(operation, times):
    """How many times as much two threads do in the same time as one. The operation is done so often that both are at work
    for some tenths of a second, on a busy machine, too."""
    def repeat():
        for _ in range(times):
            operation()

    def one_of_two(together):
        together.wait()
        return seconds(repeat)

    with ThreadPoolExecutor(2) as pool:
        alone, both = [], []
        for _ in range(RUNS):
            alone.append(pool.submit(seconds, repeat).result())
            both.append(max(pool.map(one_of_two, [Barrier(2)] * 2)))
    return 2 * min(alone) / min(both)


def have_a_gain(operation, times):
    """In the best of some tries: the caches are shared with whatever else runs."""
    return any(gain_of_a_second_thread(operation, times) > GAIN for _ in range(4))


@pytest.mark.skipif(not SCHEDULE.exists(), reason="the kernel doesn't say how long threads wait for a core")
class TestTwoThreads:
    def test_convert_at_once(self, rng):
        latitudes = rng.uniform(-79, 79, POSITIONS // SLOWNESS)
        longitudes = rng.uniform(-179, 179, POSITIONS // SLOWNESS)
        assert have_a_gain(lambda: tessara.convert(latitudes, longitudes, to="UTMREF"), 5)

    def test_lay_polygons_over_each_other_at_once(self, rng):
        turns = np.linspace(0, 2 * np.pi, 1500, endpoint=False)
        one, other = (np.column_stack([48 + np.sin(turns) * reach, 11 + np.cos(turns) * reach])
                      for reach in rng.uniform(0.5, 1, (2, len(turns))))
        assert have_a_gain(lambda: tessara.overlay(one, other), 1 + 12 // SLOWNESS)

    def test_have_one_interpreter(self):
        # A call that keeps the interpreter's lock all the time: the measure notices it.
        assert gain_of_a_second_thread(lambda: sum(range(1_000_000)), 12) < GAIN


def grown(operation, times):
    tracemalloc.start()
    for _ in range(times // 10):
        operation()
    gc.collect()
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
    (lambda: tessara.convert(48.1375, 11.5755), 20_000),
    (lambda: tessara.convert([48.1375, 91], 11.5755, errors="status"), 10_000),
    (refused, 20_000),
    (lambda: tessara.distance(48, 11, 49, 12), 10_000),
    (lambda: tessara.zones(48, 11), 10_000),
    (lambda: tessara.format(48.0, 11.0, to="GEOGRAD"), 10_000),
    (lambda: tessara.check("32UPU9160334791"), 10_000),
    (lambda: SHEET.pixels(48, 11), 10_000),
    (lambda: tessara.point_in_polygon(48.5, 11.5, SQUARE), 10_000),
    (lambda: tessara.overlay(SQUARE, SQUARE), 2000),  # makes dozens of them
]


@pytest.mark.parametrize("operation, times", CALLS)
@pytest.mark.skipif(living_objects is not None, reason="so many calls take too long with sanitizers")
def test_no_object_of_python_is_left_behind(operation, times):
    # The smallest object takes 16 bytes; what the interpreter keeps of its own accord doesn't grow with the calls, which
    # are slow as they are traced.
    traced = min(times, 5000)
    assert grown(operation, traced) < 8 * traced


def resident():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * PAGE


@pytest.mark.parametrize("operation, times", CALLS)
@pytest.mark.skipif(living_objects is not None, reason="the sanitizers keep what is freed for a while")
def test_memory_does_not_grow(operation, times):
    # An object of the library takes more than 100 bytes, so that one left by each of 10 000 calls is a mebibyte.
    for _ in range(times):
        operation()
    before = resident()
    for _ in range(times):
        operation()
    assert resident() - before < 1 << 20


@pytest.mark.parametrize("operation, times", CALLS)
@pytest.mark.skipif(living_objects is None, reason="this build doesn't count them")
def test_no_object_of_the_library_is_left_behind(operation, times):
    operation()
    gc.collect()
    before = living_objects()
    for _ in range(times // SLOWNESS):
        operation()
    gc.collect()
    assert living_objects() == before


@pytest.mark.skipif(living_objects is None, reason="this build doesn't count them")
def test_the_objects_of_a_map_are_counted():
    gc.collect()
    before = sum(living_objects().values())
    sheet = tessara.Map.around(50.0, 10.0)
    assert sum(living_objects().values()) > before
    del sheet
    gc.collect()
    assert sum(living_objects().values()) == before
