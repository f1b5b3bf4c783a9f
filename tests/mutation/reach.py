"""Which tests run which lines of the library, and how long each test takes.

A test that doesn't run a line can't notice a change of it, so only the others have to run.
"""
import concurrent.futures
import json
import os
import re
import resource
import shutil
import subprocess
from pathlib import Path

from changes import digest
from library import BUILD, ROOT, SCRATCH, TESTS, is_done, with_option

REACH = BUILD / "reach.json"
# Seconds of the processor while the blocks of a test are noted. The tests that take longer repeat the same with many
# inputs, and reach their lines in the first seconds.
LONGEST = 4


def all_tests():
    listing = subprocess.run([str(TESTS), "--gtest_list_tests"], check=True, text=True, stdout=subprocess.PIPE).stdout
    tests, suite = [], None
    for line in listing.splitlines():
        name = line.split("#")[0].strip()
        if line[0] == " ":
            tests.append(suite + name)
        else:
            suite = name
    return tests


def fingerprint(path):
    return digest([path.read_text()])


def build_noting_library(library, directory, jobs):
    """The library without optimisation, whose blocks note that they run."""
    directory.mkdir(parents=True, exist_ok=True)
    objects, commands = {}, []
    for number, source in enumerate(library.compile):
        made = directory / f"{number}.o"
        objects[library.object_of(source)] = made
        command = with_option(library.compile[source], "-o", made)
        command[command.index("-c"):command.index("-c")] = ["-w", "-O0", "-g1", "-gdwarf-4", "-fsanitize-coverage=trace-pc"]
        commands.append(command)
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        if not all(pool.map(is_done, commands)):
            raise SystemExit("mutate: the library doesn't compile with -fsanitize-coverage=trace-pc")
    runtime = directory / "reach.o"
    subprocess.run(["c++", "-O2", "-fPIC", "-c", "-o", runtime, Path(__file__).with_suffix(".cpp")], check=True)
    library.link_with(objects, directory, str(runtime))


def blocks_by_line(shared):
    """The blocks that hold code of a line, by file and line. A block is the address at which it notes itself."""
    listing = subprocess.Popen(["objdump", "-d", "-l", "--no-show-raw-insn", shared], text=True, stdout=subprocess.PIPE)
    blocks = {}
    # What comes before the first block of a function belongs to it; the call that notes a block belongs to none before.
    line, block, waiting, is_noted = None, None, set(), False
    for text in listing.stdout:
        if text[0] == " ":
            if is_noted:
                block = int(text.split(":", 1)[0], 16)
                for before in waiting | {line}:
                    blocks.setdefault(before, set()).add(block)
                waiting = set()
            is_noted = "__sanitizer_cov_trace_pc" in text and "call" in text
            if is_noted:
                continue
            if block is None:
                waiting.add(line)
            else:
                blocks.setdefault(line, set()).add(block)
        elif text[0] == "/":
            match = re.match(r"(.+?):(\d+)", text)
            if match is not None:  # else the name of the library itself
                line = (os.path.normpath(match.group(1)), int(match.group(2)))
        elif re.match(r"[0-9a-f]+ <", text):
            line, block, waiting, is_noted = None, None, set(), False
    blocks.pop(None, None)
    return blocks


def limit_time():
    resource.setrlimit(resource.RLIMIT_CPU, (LONGEST, LONGEST))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_noted(test, directory, number):
    notes = directory / f"{number}.notes"
    environment = dict(os.environ, LD_LIBRARY_PATH=str(directory), TESSARA_REACH=str(notes))
    process = subprocess.Popen([str(TESTS), f"--gtest_filter={test}"], cwd=directory, env=environment,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=limit_time)
    _, process.returncode, usage = os.wait4(process.pid, 0)
    seconds = usage.ru_utime + usage.ru_stime
    data = notes.read_bytes() if notes.exists() else b""
    notes.unlink(missing_ok=True)
    return [match.start() for match in re.finditer(b"\x01", data)], round(seconds, 3)


def measure(library, jobs):
    directory = SCRATCH / "reach"
    build_noting_library(library, directory, jobs)
    tests = all_tests()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        runs = list(pool.map(lambda entry: run_noted(entry[1], directory, entry[0]), enumerate(tests)))
    tests_of_block = {}
    for number, (blocks, _) in enumerate(runs):
        for block in blocks:
            tests_of_block[block] = tests_of_block.get(block, 0) | 1 << number
    lines = {}
    for (name, line), blocks in blocks_by_line(directory / "libtessara_tested.so").items():
        path = Path(name)
        if ROOT / "src" not in path.parents:
            continue
        reached = 0
        for block in blocks:
            reached |= tests_of_block.get(block, 0)
        lines.setdefault(str(path.relative_to(ROOT)), {})[line] = f"{reached:x}"
    texts = {name: fingerprint(ROOT / name) for name in lines}
    seconds = [seconds for _, seconds in runs]
    REACH.write_text(json.dumps({"tests": tests, "seconds": seconds, "lines": lines, "texts": texts}))
    shutil.rmtree(directory)


class Reach:
    def __init__(self):
        stored = json.loads(REACH.read_text())
        self.seconds = dict(zip(stored["tests"], stored["seconds"]))
        self.lines = {name: lines for name, lines in stored["lines"].items()
                      if (ROOT / name).exists() and stored["texts"][name] == fingerprint(ROOT / name)}
        self.known = stored["tests"]
        self.new = [test for test in all_tests() if test not in self.seconds]

    def tests(self, change):
        """The tests that run a line, and those written since; all tests if the line has no code of its own."""
        line = self.lines.get(change.name, {}).get(str(change.line))
        if line is None:
            return self.known + self.new
        reached = int(line, 16)
        return [test for number, test in enumerate(self.known) if reached >> number & 1] + self.new

    def time(self, test):
        return self.seconds.get(test, 0.01)
