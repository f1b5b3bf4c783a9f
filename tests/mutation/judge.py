"""Runs the tests that reach a change, those of its source and the fastest first, until one fails."""
import os
import re
import resource
import shutil
import signal
import subprocess

from library import BUILD, LIBRARY, ROOT, SCRATCH, TESTS

TEST_MEMORY = 4 << 30
LONGEST_WAIT = 1800
# A batch may take this many seconds, and this many times what its tests take on the unchanged library.
LEAST_TIME, MOST_TIMES = 8, 4
BATCHES = [1.0, 8.0, 16.0, 30.0, float("inf")]  # seconds of tests in each batch

# On a busy machine the first two fail by time, and the last by an edit of the sources while a run lasts.
SAY_NOTHING = "*EndInTime*:*EndsInHalfAMillisecond*:HouseRules.*"

# These tests take most of the total time; only changes in their own rooms wait for them.
LONGEST = re.compile(r"WindowsInASystem|WindowSweep")
ROOMS_OF_THE_LONGEST = {"areas", "grids"}


def files_by_suite():
    files = {}
    for file in (ROOT / "tests").rglob("*_test.cpp"):
        for suite in re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)", file.read_text(), re.MULTILINE):
            files.setdefault(suite, set()).add(file)
    return files


# A copy, so that the tests may be built again while changes are judged.
RUNNING_TESTS = SCRATCH / "tessara_tests"


class Judge:
    def __init__(self, reach, most_seconds=float("inf")):
        shutil.copy2(TESTS, RUNNING_TESTS)
        self.reach = reach
        self.most_seconds = most_seconds
        self.files = files_by_suite()

    def is_mirrored(self, test, change):
        """Whether a test stands in the file by the name of the source."""
        mirrored = ROOT / "tests" / change.path.relative_to(ROOT / "src").parent / f"{change.path.stem}_test.cpp"
        return any(mirrored in self.files.get(name, ()) for name in test.split(".")[0].split("/"))

    def batches(self, change):
        tests = self.reach.tests(change)
        if change.path.parent.name not in ROOMS_OF_THE_LONGEST:
            tests = [test for test in tests if not LONGEST.search(test)]
        tests.sort(key=lambda test: (not self.is_mirrored(test, change), self.reach.time(test)))
        batch, total, limits = [], 0.0, iter(BATCHES)
        limit = next(limits)
        for test in tests:
            batch.append(test)
            total += self.reach.time(test)
            if total > limit:
                yield batch, total
                batch, total, limit = [], 0.0, next(limits, float("inf"))
        if batch:
            yield batch, total

    def noticed_by(self, change, directory):
        """The test that notices the library in a directory; None if those of the first seconds pass."""
        total = 0.0
        for batch, seconds in self.batches(change):
            total += seconds
            if total > self.most_seconds:
                return None
            failed = run(batch, directory, LEAST_TIME + MOST_TIMES * seconds)
            if failed:
                return failed
        return None


def run(tests, directory, seconds):
    """The first of some tests that fails, crashes or uses more than some seconds of the processor; or None."""
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (TEST_MEMORY, TEST_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds), int(seconds) + 1))

    flags = directory / "flags"
    flags.write_text(f"--gtest_filter={':'.join(tests)}-{SAY_NOTHING}\n--gtest_fail_fast\n")
    command = [str(RUNNING_TESTS), f"--gtest_flagfile={flags}"]
    environment = dict(os.environ, LD_LIBRARY_PATH=str(directory))
    try:
        done = subprocess.run(command, cwd=directory, env=environment, text=True, errors="replace",
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=LONGEST_WAIT, preexec_fn=limit)
    except subprocess.TimeoutExpired:
        return "no end"
    if done.returncode == 0:
        return None
    failed = re.findall(r"^\[  FAILED  \] (\S+)", done.stdout, re.MULTILINE)
    begun = re.findall(r"^\[ RUN      \] (\S+)", done.stdout, re.MULTILINE)
    if failed:
        return failed[0].rstrip(",")
    kind = "no end of" if done.returncode == -signal.SIGXCPU else "a crash in"
    return f"{kind} {begun[-1] if begun else 'the start'}"


def check_unchanged(judge, library):
    """Runs all tests on the unchanged library, once for each build; any failure ends the run."""
    directory = SCRATCH / "unchanged"
    passed = directory / "passed"
    built = max((BUILD / LIBRARY).stat().st_mtime, TESTS.stat().st_mtime)
    if passed.exists() and passed.stat().st_mtime > built:
        return
    shutil.rmtree(directory, ignore_errors=True)
    directory.mkdir(parents=True)
    library.link_with({}, directory)
    tests = [test for test in judge.reach.known + judge.reach.new if not LONGEST.search(test)]
    failed = run(tests, directory, LONGEST_WAIT)
    if failed:
        raise SystemExit(f"mutate: without any change there is {failed}")
    passed.touch()
