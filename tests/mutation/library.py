"""Compiles a changed source and links it with the unchanged rest of the library, from the commands of the build."""
import json
import os
import re
import shlex
import shutil
import subprocess
import threading
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build" / "mutate"
LIBRARY = "lib/libtessara_tested.so"
TESTS = BUILD / "bin" / "tessara_tests"
SCRATCH = BUILD / "mutants"


def ninja(*tool):
    return subprocess.run(["ninja", "-C", str(BUILD), "--quiet", "-t", *tool], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


def with_option(command, option, value):
    """The command with another value after an option such as -o."""
    changed = list(command)
    changed[changed.index(option) + 1] = str(value)
    return changed


def is_done(command):
    return subprocess.run(command, cwd=BUILD, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


class Library:
    def __init__(self):
        # Of this run alone, since the headers may be others in the next.
        self.prefixes = SCRATCH / f"prefixes-{os.getpid()}"
        self.prefix_lock = threading.Lock()
        self.compile = {}
        for entry in json.loads((BUILD / "compile_commands.json").read_text()):
            if "tessara_tested.dir" in entry["command"]:
                # A changed source is compiled once, so a cache doesn't help.
                command = [word for word in shlex.split(entry["command"]) if Path(word).name != "ccache"]
                self.compile[Path(entry["file"])] = command
        linkers = [name for name in ("mold", "ld.lld") if shutil.which(name)]
        self.link = ninja("commands", "-s", LIBRARY).strip().splitlines()[-1]
        if linkers:
            self.link = self.link.replace(" -shared ", f" -fuse-ld={linkers[0].removeprefix('ld.')} -shared ")
        self.sources_of = {}
        source = None
        for line in ninja("deps").splitlines():
            if line and not line.startswith(" "):
                found = re.match(r"tests/CMakeFiles/tessara_tested\.dir/__/(.*)\.o:", line)
                source = ROOT / found.group(1) if found else None
            elif source and line:
                path = Path(os.path.normpath(BUILD / line.strip()))
                self.sources_of.setdefault(path, []).append(source)

    def object_of(self, source):
        command = self.compile[source]
        return command[command.index("-o") + 1]

    def link_with(self, objects, directory, more=""):
        """Links the library in a directory, with some objects replaced and some more text in the command."""
        link = self.link
        for old, new in objects.items():
            link = link.replace(f" {old} ", f" {new} ")
        link = link.replace(f"-o {LIBRARY} ", f"-o {directory}/{Path(LIBRARY).name} {more} ")
        subprocess.run(link, cwd=BUILD, shell=True, check=True)

    def build(self, change, directory):
        """The library with a change. False if it doesn't compile."""
        shutil.rmtree(directory, ignore_errors=True)
        directory.mkdir(parents=True)
        text = change.text()
        if change.path.suffix == ".cpp":
            object_file = directory / "changed.o"
            is_compiled = self._compile_source(change.path, text, object_file)
            objects = {self.object_of(change.path): object_file}
        else:
            objects = {self.object_of(source): directory / f"{i}.o"
                       for i, source in enumerate(self.sources_of[change.path])}
            is_compiled = self._compile_with_header(change.path, text, directory, objects)
        if is_compiled:
            self.link_with(objects, directory)
        return is_compiled

    def _compile_source(self, source, text, object_file):
        """The includes at the top of a source are compiled once and serve all its changes."""
        end = [match.end() for match in re.finditer(r"^#include[^\n]*\n", text, re.MULTILINE)]
        head, body = (text[:end[-1]], text[end[-1]:]) if end else ("", text)
        with self.prefix_lock:
            prefix = self._prefix(source, head)
        changed = object_file.with_suffix(".cpp")
        changed.write_text(f'#line {head.count(chr(10)) + 1} "{source}"\n{body}')
        command = with_option(with_option(self.compile[source], "-o", object_file), "-c", changed)
        command[1:1] = ["-w", "-include", str(prefix)]
        return is_done(command)

    def _prefix(self, source, head):
        prefix = self.prefixes / source.relative_to(ROOT / "src").with_suffix(".h")
        if prefix.exists() and prefix.read_text() == head:
            return prefix
        prefix.parent.mkdir(parents=True, exist_ok=True)
        prefix.write_text(head)
        command = with_option(self.compile[source], "-o", f"{prefix}.gch")
        command = with_option(command, "-c", prefix)
        command[1:1] = ["-w", "-x", "c++-header"]
        subprocess.run(command, cwd=BUILD, check=True)
        return prefix

    def _compile_with_header(self, header, text, directory, objects):
        overlay = directory / "src"
        copy = overlay / header.relative_to(ROOT / "src")
        copy.parent.mkdir(parents=True)
        copy.write_text(text)
        for source in self.sources_of[header]:
            command = with_option(self.compile[source], "-o", objects[self.object_of(source)])
            command[1:1] = [f"-I{overlay}", "-w"]
            if not is_done(command):
                return False
        return True
