"""The changes that can be made to a source: one place each, in an order that any first part of spreads evenly."""
import hashlib
import re

SWAPS = {
    " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ",
    " + ": " - ", " - ": " + ", " += ": " -= ", " -= ": " += ", " * ": " / ", " / ": " * ",
    " && ": " || ", " || ": " && ",
}
OPERATOR = re.compile("|".join(re.escape(text) for text in sorted(SWAPS, key=len, reverse=True)))
UNARY_MINUS = re.compile(r"(?<![\w)\]-])-(?=[\w.(])")
NEGATION = re.compile(r"!(?=[\w(])")
NUMBER = re.compile(r"(?<![\w.])(\d+\.\d*(?:[eE][-+]?\d+)?|\d+[eE][-+]?\d+|\d+)(?![\w.'])")
BOOLEAN = re.compile(r"\b(true|false)\b")
# The consequence of a guard on one line. The condition remains, with all that it calls.
GUARDED = re.compile(r"(?<=\) )(?:return|continue|break)\b[^;{}\n]*(?=;$)", re.MULTILINE)
# A statement on a line of its own: a call or an assignment, except of memory that would be found anyway.
STATEMENT = re.compile(r"(?<=[;{}]\n)[ \t]+(?!return\b|using\b|case\b|break\b|continue\b|default\b|else\b|static_assert\b|\w+\.reserve\()"
                       r"(?:\+\+|--|\*)?[A-Za-z_][\w.:>\[\]-]*(?:\(| [-+*/|&]?= |\+\+|--)[^\n]*;$", re.MULTILINE)
# Text that isn't changed: comments, strings, declarations checked at compile time, and array lengths.
BLANKED = re.compile(
    r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|(?<!\w)'(?:\\.|[^'\\\n])'|^[ \t]*#[^\n]*|static_assert\(.*?\);"
    r"|std::array<[^<>\n]*>|[\w:>] \w+\[\d+\](?=[,)]| = |\{)",
    re.DOTALL | re.MULTILINE)

CONTEXT_LINES = 2


class Change:
    """One place of a file with other text in it. Its key names it by the text around it, whatever its line, and by a
    number if there are others alike."""

    def __init__(self, path, name, text, lines, start, end, new):
        self.path, self.name, self.original, self.start, self.end, self.new = path, name, text, start, end, new
        first = text.rfind("\n", 0, start) + 1
        last = text.find("\n", end)
        self.line = text.count("\n", 0, start) + 1
        self.before = text[first:last].strip()
        self.after = (text[first:start] + new + text[end:last]).strip()
        around = lines[max(0, self.line - 1 - CONTEXT_LINES):self.line + CONTEXT_LINES]
        self.key = digest([name, *around, str(start - first), new])

    def tell_apart(self, number):
        """Gives the second and each later change with the same text around it a key of its own."""
        if number > 1:
            self.key = digest([self.key, str(number)])

    def text(self):
        return self.original[:self.start] + self.new + self.original[self.end:]

    def __str__(self):
        return f"{self.name}:{self.line}\n    - {self.before}\n    + {self.after}"


def digest(parts):
    return hashlib.sha1("\0".join(parts).encode()).hexdigest()[:16]


def altered(number):
    """A whole number grows by one; a tolerance such as 1e-9 to its thousandfold; another by a thousandth, or to one."""
    if number.isdigit():
        return str(int(number) + 1)
    if re.fullmatch(r"1e-\d+", number):
        return f"1e{int(number[2:]) + 3}"
    return repr(float(number) * 1.001 if float(number) != 0.0 else 0.001)


def is_balanced(text):
    return text.count("(") == text.count(")") and text.count("{") == text.count("}")


def changes_of(path, root):
    """All changes of a file, one of each line before the second of any line."""
    text = path.read_text()
    code = BLANKED.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)
    found = [(m.span(), SWAPS[m.group()]) for m in OPERATOR.finditer(code)]
    found += [(m.span(), "") for m in UNARY_MINUS.finditer(code)]
    found += [(m.span(), "") for m in NEGATION.finditer(code)]
    found += [(m.span(), altered(m.group())) for m in NUMBER.finditer(code)]
    found += [(m.span(), "false" if m.group() == "true" else "true") for m in BOOLEAN.finditer(code)]
    found += [(m.span(), "") for m in GUARDED.finditer(code)]
    found += [(m.span(), "") for m in STATEMENT.finditer(code) if is_balanced(m.group())]
    lines = text.splitlines()
    name = str(path.relative_to(root))
    by_line = {}
    alike = {}  # how many changes before have the same text around them
    for (start, end), new in sorted(found):
        change = Change(path, name, text, lines, start, end, new)
        alike[change.key] = alike.get(change.key, 0) + 1
        change.tell_apart(alike[change.key])
        by_line.setdefault(change.line, []).append(change)
    ordered = []
    for on_line in by_line.values():
        on_line.sort(key=lambda change: change.key)
        ordered += enumerate(on_line)
    ordered.sort(key=lambda entry: (entry[0], entry[1].key))
    return [change for _, change in ordered]


def spread(paths, root):
    """The changes of all files. Each first part has the same share of every file."""
    placed = []
    for path in paths:
        changes = changes_of(path, root)
        placed += [((i + 0.5) / len(changes), change) for i, change in enumerate(changes)]
    placed.sort(key=lambda entry: (entry[0], entry[1].key))
    return [change for _, change in placed]
