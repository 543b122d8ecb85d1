#!/usr/bin/python3
"""Times exports of quelmont-draw, and ogr2ogr writing the same lines as DXF.

    bench/whole_export.py [--programs FOLDER] [--runs N] [--points N] [--work FOLDER]

For the default map, a map of one million points and one of 14 million (or N): the best of the runs, seconds
by the clock and of the processor, largest resident memory, bytes, and the ratio of the processor's seconds to
those of the DXF export of the same map. ogr2ogr (Debian: gdal-bin, python3-gdal, python3-numpy) reads the
lines from FlatGeobuf, projected already.
"""

import multiprocessing
import pathlib
import shutil
import subprocess
import tempfile

from whole_draw import ROBINSON, best, minute_grid_lines, read_arguments, run, write_for_gdal

FORMATS = ("dxf", "cgm", "wmf", "svg", "txt", "bmp")


def written(work, ending):
    return sum(file.stat().st_size for file in work.glob("out*." + ending))


def row(name, results, size, base):
    clock, processor, megabytes = results
    ratio = f"{processor / base:7.2f}" if base else ""
    print(f"{name:44}{clock:9.2f}{processor:11.2f}{megabytes:7.0f}{size / 1e6:10.1f}{ratio}", flush=True)


def time_map(arguments, work, draw, name, options, path=None):
    print(name)
    base = None
    for ending in FORMATS:
        results = best(arguments.runs, work, [draw, "--projection", "robinson", *options, work / f"out.{ending}"])
        base = base or results[1]
        row(f"  quelmont-draw to {ending}", results, written(work, ending), base)
    if path and shutil.which("ogr2ogr"):
        lines = work / "lines.fgb"
        # In a process of its own: what this one holds would count for the programs that it starts.
        maker = multiprocessing.Process(target=lambda: write_for_gdal(minute_grid_lines(path), lines))
        maker.start()
        maker.join()
        plane = work / "plane.fgb"
        run(work, ["ogr2ogr", "-t_srs", ROBINSON, "-lco", "SPATIAL_INDEX=NO", plane, lines])
        results = best(arguments.runs, work, ["rm", "-f", work / "out.dxf"],
                       ["ogr2ogr", "-f", "DXF", work / "out.dxf", plane])
        row("  ogr2ogr to dxf", results, written(work, "dxf"), base)
        plane.unlink()
        lines.unlink()
    for file in work.glob("out*"):
        file.unlink()


def main():
    arguments = read_arguments()
    programs = arguments.programs.resolve()
    print(f"{'':44}{'clock':>9}{'processor':>11}{'MB':>7}{'MB file':>10}{'times':>7}")
    with tempfile.TemporaryDirectory(dir=arguments.work) as temporary:
        work = pathlib.Path(temporary).resolve()
        draw = programs / "quelmont-draw"
        time_map(arguments, work, draw, "the default map", [])
        for points in (1_000_000, arguments.points):
            path = work / "big.map"
            subprocess.run([programs / "make_big_map", path, str(points)], check=True)
            time_map(arguments, work, draw, f"{points} points", ["--map", path], path)


if __name__ == "__main__":
    main()
