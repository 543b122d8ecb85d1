#!/usr/bin/python3
"""Times whole runs of quelmont-draw, and of what else draws the same lines on this machine.

    bench/whole_draw.py [--programs FOLDER] [--runs N] [--points N] [--work FOLDER]

Prints a table of the best of N runs: seconds by the clock, seconds of the processor, largest resident
memory, and the ratio of the processor's seconds to those of quelmont-draw on the same task. GMT and GDAL
take part when they are installed (Debian: gmt, and gdal-bin, both with python3-gdal and python3-numpy;
ghostscript for GMT's PNG).
"""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

PICTURE = "1600x1000"
ROBINSON = "+proj=robin +R=6371007"


def run(work, *commands):
    """One run of commands one after the other: clock, processor, megabytes of the largest."""
    seconds = 0.0
    processor = 0.0
    megabytes = 0.0
    for command in commands:
        words, output = command if isinstance(command, tuple) else (command, os.devnull)
        with open(output, "wb") as stream:
            start = time.monotonic()
            process = subprocess.Popen([str(word) for word in words], stdout=stream, cwd=work)
            _, status, usage = os.wait4(process.pid, 0)
            seconds += time.monotonic() - start
            processor += usage.ru_utime + usage.ru_stime
        if status != 0:
            sys.exit(f"{words[0]} failed")
        megabytes = max(megabytes, usage.ru_maxrss / 1024)
    return seconds, processor, megabytes


def best(runs, work, *commands):
    results = [run(work, *commands) for _ in range(runs)]
    clock, processor, megabytes = zip(*results)
    return min(clock), min(processor), max(megabytes)


def minute_grid_lines(path):
    """The lines of a map file as arrays of longitude and latitude, degrees."""
    import numpy

    records = numpy.fromfile(path, dtype="<i2").reshape(-1, 3)
    # A code of 1000 and more begins a line.
    starts = numpy.flatnonzero(numpy.abs(records[:, 0]) >= 1000)
    points = records[:, [2, 1]] / 60.0
    return numpy.split(points, starts[1:])


def write_for_gmt(lines, path):
    """Binary doubles, with a pair of no numbers before each line."""
    import numpy

    gap = numpy.full((1, 2), numpy.nan)
    with open(path, "wb") as stream:
        for line in lines:
            numpy.concatenate((gap, line)).tofile(stream)


def write_for_gdal(lines, path):
    """A FlatGeobuf file of one layer of lines."""
    import numpy
    from osgeo import ogr, osr

    system = osr.SpatialReference()
    system.ImportFromEPSG(4326)
    system.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    source = ogr.GetDriverByName("FlatGeobuf").CreateDataSource(str(path))
    layer = source.CreateLayer("lines", system, ogr.wkbLineString, ["SPATIAL_INDEX=NO"])
    # Little-endian well-known binary: order, type 2, number of points, points.
    head = numpy.dtype([("order", "u1"), ("type", "<u4"), ("count", "<u4")])
    for line in lines:
        if len(line) > 1:
            begin = numpy.array([(1, 2, len(line))], dtype=head).tobytes()
            feature = ogr.Feature(layer.GetLayerDefn())
            feature.SetGeometry(ogr.CreateGeometryFromWkb(begin + line.astype("<f8").tobytes()))
            layer.CreateFeature(feature)


class Table:
    def __init__(self, runs, work):
        self.runs = runs
        self.work = work
        self.base = None
        print(f"{'':58}{'clock':>9}{'processor':>11}{'MB':>7}{'times':>7}")

    def row(self, name, *commands, base=False):
        clock, processor, megabytes = best(self.runs, self.work, *commands)
        if base:
            self.base = processor
        ratio = f"{processor / self.base:7.1f}" if self.base else ""
        print(f"{name:58}{clock:9.3f}{processor:11.3f}{megabytes:7.0f}{ratio}", flush=True)


def read_arguments():
    """Where the programs lie, how often and on how many points they run, and a folder to work in."""
    parser = argparse.ArgumentParser()
    root = pathlib.Path(__file__).resolve().parent.parent
    parser.add_argument("--programs", type=pathlib.Path, default=root / "build/dev/bin")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--points", type=int, default=14_000_000)
    parser.add_argument("--work", type=pathlib.Path)
    return parser.parse_args()


def main():
    arguments = read_arguments()
    with tempfile.TemporaryDirectory() as temporary:
        time_all(arguments, (arguments.work or pathlib.Path(temporary)).resolve())


def time_all(arguments, work):
    programs = arguments.programs.resolve()
    draw = programs / "quelmont-draw"
    table = Table(arguments.runs, work)
    table.row("quelmont-draw, nothing but the grid", [draw, "--no-map", work / "grid.png"])
    table.row("quelmont-draw, the default map", [draw, work / "world.png"])

    big = work / "big.map"
    run(work, [programs / "make_big_map", big, arguments.points])
    print(f"{arguments.points} points, Robinson, {PICTURE}:")
    robinson = [draw, "--projection", "robinson", "--window", PICTURE, "--map", big]
    table.row("quelmont-draw, lines of one pixel", robinson + [work / "thin.png"], base=True)
    table.row("quelmont-draw, lines of three pixels", robinson + ["--line-width", "3", work / "wide.png"])
    table.row("quelmont-draw, smooth lines of one pixel", robinson + ["--smooth", work / "smooth.png"])
    table.row("quelmont-draw, smooth lines of three pixels",
              robinson + ["--smooth", "--line-width", "3", work / "smooth.png"])
    table.row("quelmont-draw, filled circles",
              robinson + ["--symbol", "12", "--symbol-size", "2", work / "circles.png"])
    table.row("quelmont-draw, smooth filled circles",
              robinson + ["--smooth", "--symbol", "12", "--symbol-size", "2", work / "circles.png"])
    time_formats(table, programs, arguments.points, work)
    time_others(table, minute_grid_lines(big), work)


def time_formats(table, programs, points, work):
    """The same points in other formats, whole and as a map of 30 by 20 degrees, and just read."""
    draw = programs / "quelmont-draw"
    files = {"minute grid": work / "big.map", "packed": work / "big.pkv", "world": work / "big.mps"}
    whole = ["--projection", "robinson", "--window", PICTURE]
    region = ["--projection", "equirectangular", "--window", PICTURE, "--north", "60N", "--south", "40N",
              "--west", "0E", "--east", "30E", "--lat-grid", "10", "--lon-grid", "10"]
    for name, path in files.items():
        run(work, [programs / "make_big_map", path, points])
        table.row(f"quelmont-draw, {name} ({path.suffix})", [draw, *whole, "--map", path, work / "format.png"])
    table.row("quelmont-draw, nothing but the grid of 30 by 20 degrees",
              [draw, *region, "--no-map", work / "region.png"])
    for name, path in files.items():
        table.row(f"quelmont-draw, {name}, 30 by 20 degrees", [draw, *region, "--map", path, work / "region.png"])
        table.row(f"cat, {name}", ["cat", path])


def time_others(table, lines, work):
    if shutil.which("gmt"):
        binary = work / "big.gmt"
        write_for_gmt(lines, binary)
        plot = (["gmt", "psxy", binary, "-bi2d", "-Rd", "-JN20c", "-W0.25p", "-Vq"], work / "big.ps")
        table.row("GMT, psxy to PostScript", plot)
        if shutil.which("gs"):
            table.row("GMT, psxy and psconvert to PNG", plot,
                      ["gmt", "psconvert", work / "big.ps", "-Tg", "-E200", f"-D{work}"])
    if shutil.which("ogr2ogr") and shutil.which("gdal_rasterize"):
        write_for_gdal(lines, work / "big.fgb")
        plane = work / "plane.fgb"
        remove = ["rm", "-f", plane]
        project = ["ogr2ogr", "-t_srs", ROBINSON, "-lco", "SPATIAL_INDEX=NO", plane, work / "big.fgb"]
        width, height = PICTURE.split("x")
        paint = ["gdal_rasterize", "-q", "-burn", "255", "-ot", "Byte", "-ts", width, height,
                 plane, work / "big.tif"]
        table.row("GDAL, ogr2ogr and gdal_rasterize to TIFF", remove, project, paint)


if __name__ == "__main__":
    main()
