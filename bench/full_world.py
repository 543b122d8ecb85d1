#!/usr/bin/python3
"""Times maps of the coasts, borders and rivers of the world in full resolution, beside the least that the
machine needs for them and beside GMT.

    bench/full_world.py PREFIX [--programs FOLDER] [--runs N] [--gmt-runs N]

draws PREFIX.mps, PREFIX.pkv and PREFIX.prn with quelmont-draw, 1600 x 1000 pixels to PNG, and prints a table
of the processor's seconds, medians of N runs; every round runs everything once, so that what else the machine
does falls on all alike. Where the program input_floor was built, its seconds for the same file and
projection stand beside them, and where GMT is installed (Debian: gmt, ghostscript) and PREFIX.b2d is there
(pairs of doubles, longitude and latitude, a pair of no numbers between lines), GMT's to PostScript and to PNG.
"""

import argparse
import pathlib
import shutil
import statistics
import subprocess
import tempfile

from whole_draw import PICTURE, run

# Our name, the name in input_floor's table, and GMT's region and projection, 16 inches wide at most.
PROJECTIONS = {
    "robinson": (None, ("-Rd", "-JN0/16i")),
    "mercator": ("mercator", ("-R-180/180/-80/80", "-JM0/16i")),
    "orthographic": ("ortho", ("-Rg", "-JG10/40/10i")),
    "mollweide": ("mollweide", ("-Rd", "-JW0/16i")),
    "interrupted": (None, ("-Rd", "-JW0/16i")),
}
ENDINGS = ("mps", "pkv", "prn")


def floor_seconds(program, prefix):
    """Of the whole job of input_floor, by ending and projection."""
    table = subprocess.run([program, prefix, "1"], check=True, capture_output=True, text=True).stdout
    cells = [[cell.strip() for cell in line.split("|")] for line in table.splitlines() if line.startswith("| .")]
    return {tuple(cell[1][1:].split(" ")): float(cell[3]) for cell in cells if cell[1].count(" ") == 1}


def gmt_commands(prefix, projection, work):
    region, plane = PROJECTIONS[projection][1]
    plot = (["gmt", "psxy", f"{prefix}.b2d", "-bi2d", region, plane, "-W0.25p", "--PS_MEDIA=1728x1300", "-P",
             "-Vq"], work / "gmt.ps")
    return plot, ["gmt", "psconvert", work / "gmt.ps", "-Tg", "-E100", "-A", f"-D{work}"]


def cell(values, digits=2):
    return f"{statistics.median(values):.{digits}f}" if values else "-"


def ratio(values, base):
    return f"{statistics.median(values) / statistics.median(base):.1f}" if values and base else "-"


def measure(arguments, work):
    """Seconds by what was run, a list of all rounds each."""
    draw = arguments.programs / "quelmont-draw"
    floor = arguments.programs / "input_floor"
    gmt = shutil.which("gmt") and pathlib.Path(f"{arguments.prefix}.b2d").exists()
    seconds = {}
    for turn in range(arguments.runs):
        for ending in ENDINGS:
            for projection in PROJECTIONS:
                command = [draw, "--map", f"{arguments.prefix}.{ending}", "--projection", projection,
                           "--window", PICTURE, work / "map.png"]
                seconds.setdefault((ending, projection), []).append(run(work, command)[1])
        if floor.exists():
            for key, value in floor_seconds(floor, arguments.prefix).items():
                seconds.setdefault(("floor", *key), []).append(value)
        if gmt and turn < arguments.gmt_runs:
            for projection in PROJECTIONS:
                plot, convert = gmt_commands(arguments.prefix, projection, work)
                drawn = run(work, plot)[1]
                seconds.setdefault(("ps", projection), []).append(drawn)
                seconds.setdefault(("png", projection), []).append(drawn + run(work, convert)[1])
    return seconds


def main():
    parser = argparse.ArgumentParser()
    root = pathlib.Path(__file__).resolve().parent.parent
    parser.add_argument("prefix", type=pathlib.Path)
    parser.add_argument("--programs", type=pathlib.Path, default=root / "build/dev/bin")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--gmt-runs", type=int, default=3)
    arguments = parser.parse_args()
    arguments.prefix = arguments.prefix.resolve()
    arguments.programs = arguments.programs.resolve()
    with tempfile.TemporaryDirectory() as work:
        seconds = measure(arguments, pathlib.Path(work))
    print("| input | projection | Quelmont | floor | ratio | GMT, PostScript | GMT, PNG | GMT's PNG by Quelmont |")
    print("|---|---|---:|---:|---:|---:|---:|---:|")
    for ending in ENDINGS:
        for projection, (floor_name, _) in PROJECTIONS.items():
            ours = seconds[ending, projection]
            floor = seconds.get(("floor", ending, floor_name), [])
            png = seconds.get(("png", projection), [])
            print(f"| .{ending} | {projection} | {cell(ours)} | {cell(floor)} | {ratio(ours, floor)} | "
                  f"{cell(seconds.get(('ps', projection), []))} | {cell(png)} | {ratio(png, ours)} |")


if __name__ == "__main__":
    main()
