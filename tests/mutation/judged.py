"""The changes judged so far, in build/mutate/judged.jsonl, and those known to change nothing, in equivalent.txt."""
import json
from pathlib import Path

from library import BUILD, ROOT

JUDGED = BUILD / "judged.jsonl"
EQUIVALENT = Path(__file__).with_name("equivalent.txt")

NOTICED, SURVIVED, INVALID = "noticed", "survived", "invalid"


def equivalents():
    """Entries of three or more lines: the file, the line before and after, and the reason."""
    entries = {}
    text = "\n".join(line for line in EQUIVALENT.read_text().splitlines() if not line.startswith("#"))
    for block in text.split("\n\n"):
        lines = [line.strip() for line in block.strip().splitlines()]
        if not lines:
            continue
        if len(lines) < 4 or lines[1][:2] != "- " or lines[2][0] != "+":
            raise SystemExit(f"mutate: {EQUIVALENT.name} has an entry of another form: {lines[0]}")
        entries[lines[0], lines[1][2:].strip(), lines[2][1:].strip()] = " ".join(lines[3:])
    return entries


def stale(entries):
    """The entries whose line the file doesn't have any more."""
    texts = {}
    for name, before, _ in entries:
        path = ROOT / name
        lines = texts.setdefault(name, {line.strip() for line in path.read_text().splitlines()} if path.exists() else set())
        if before not in lines:
            yield f"{name}: {before}"


class Judged:
    def __init__(self):
        lines = JUDGED.read_text().splitlines() if JUDGED.exists() else []
        self.by_key = {entry["key"]: entry for entry in map(json.loads, lines)}

    def verdict(self, change):
        return self.by_key.get(change.key, {}).get("verdict")

    def add(self, change, verdict, by, seconds):
        entry = {"key": change.key, "file": change.name, "line": change.line, "before": change.before,
                 "after": change.after, "verdict": verdict, "by": by, "seconds": round(seconds, 1)}
        self.by_key[change.key] = entry
        with JUDGED.open("a") as file:
            file.write(json.dumps(entry) + "\n")


def summary(changes, judged):
    """The verdicts on the changes of the sources as they are, in lines to print."""
    known = equivalents()
    count = {NOTICED: 0, SURVIVED: 0, INVALID: 0, "equivalent": 0, None: 0}
    open_ones = []
    for change in changes:
        verdict = judged.verdict(change)
        if verdict == SURVIVED and (change.name, change.before, change.after) in known:
            verdict = "equivalent"
        if verdict == SURVIVED:
            open_ones.append(change)
        count[verdict] += 1
    decided = count[NOTICED] + count[SURVIVED]
    yield from (f"not noticed: {change}" for change in open_ones)
    yield (f"{decided + count['equivalent']} changes judged: {count[NOTICED]} noticed, {count['equivalent']} equivalent, "
           f"{count[SURVIVED]} not noticed ({100 * count[NOTICED] / max(decided, 1):.1f} % of those that aren't "
           f"equivalent are noticed); {count[INVALID]} don't compile, {count[None]} not judged yet")
