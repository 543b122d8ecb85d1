#!/usr/bin/python3
"""Tests every line of map design files against the expressions of record_forms.md:

    design_forms.py QUELMONT-DRAW [FILE.cnf ...]

Without files it has the program save designs of all projections, and of map files with all kinds of names.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

PAGE = pathlib.Path(__file__).with_name("record_forms.md").read_text(encoding="utf-8")
ATOMS = dict(re.findall(r"^    (I16P|I32P|I16G|I32G|SNG|DBL|ITEM|TEXT)  ? ?(.*)$", PAGE, re.M))
PROJECTIONS = (1, 2, 40, 12, 41, 42, 16, 6, 7, 8, 26, 27, 28, 29, 30, 31, 17)
# Lines of the records that have several.
LINES = {26: 10, 27: 2, 28: 10, 48: 11, 49: 4, 51: 3}


def expression(pattern):
    return re.compile(re.sub(r"<(\w+)>", lambda atom: "(?:" + ATOMS[atom.group(1)] + ")", pattern), re.ASCII)


RECORDS = {int(number): expression(pattern)
           for number, pattern in re.findall(r"^### (\d+).*?^    (\^[^\n]*\$)$", PAGE, re.M | re.S)}


def line_numbers(lines):
    """The record of each line."""
    yield from range(1, 21)
    outputs, files = (int(word) for word in lines[19].split())
    for _ in range(files):
        yield from (21, 22, 23)
    yield from [24] * (outputs + files)
    for number in range(25, 54):
        yield from [number] * LINES.get(number, 1)
    texts = int(lines[position_of_texts(outputs, files)].split()[1])
    for _ in range(texts):
        yield from range(54, 61)


def position_of_texts(outputs, files):
    return 20 + 3 * files + outputs + files + sum(LINES.get(number, 1) for number in range(25, 53))


def test(path):
    text = path.read_bytes().decode("utf-8")
    lines = text.split("\r\n")
    assert lines.pop() == "", f"{path}: the last line has an end"
    assert "\n" not in "".join(lines) and "\r" not in "".join(lines), f"{path}: every line ends in CR LF"
    numbers = list(line_numbers(lines))
    assert len(numbers) == len(lines), f"{path}: {len(lines)} lines, not {len(numbers)}"
    for number, line in zip(numbers, lines):
        assert RECORDS[number].match(line), f"{path}: record {number}: |{line}|"
    return len(lines)


def saved(program, folder):
    """Designs that the program saves."""
    work = pathlib.Path(folder)
    maps = []
    for name in ("a, b.map", 'say "x".pkv', " blank .prn", "T\u00f8nsberg.grf", "\u6771\u4eac.dat", "six.mp1"):
        (work / name).write_bytes(b"")
        maps += ["--map", str(work / name)]
    commands = {f"{number}": ["--projection", str(number)] for number in PROJECTIONS}
    commands["maps"] = ["--projection", "robinson", "--grid-type", "1", *maps]
    commands["none"] = ["--no-map", "--grid-type", "5", "--percent", "37", "--window", "1001x743"]
    commands["odd"] = ["--north", "12:34:56N", "--south", "12:34:50S", "--lat-grid", "0:00:02", "--west", "1:23:45E",
                       "--east", "1:23:47E", "--lon-grid", "0:00:01"]
    for name, options in commands.items():
        file = work / f"design-{name}.cnf"
        subprocess.run([program, *options, "--save-design", str(file)], check=True)
        yield file


def main():
    assert len(RECORDS) == 60, sorted(RECORDS)
    files = [pathlib.Path(name) for name in sys.argv[2:]]
    with tempfile.TemporaryDirectory() as folder:
        files = files or list(saved(sys.argv[1], folder))
        print(sum(test(file) for file in files), "lines in", len(files), "files")


if __name__ == "__main__":
    main()
