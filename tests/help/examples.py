#!/usr/bin/env python3
"""Does what the pages of the help say: runs their command lines and their ways to an atlas.

    examples.py PAGES PROGRAMS DATA

PAGES is docs/help, PROGRAMS the folder of quelmont-draw and quelmont-convert, DATA that of the maps.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PAGES, PROGRAMS, DATA = (Path(argument).resolve() for argument in sys.argv[1:4])
ENVIRONMENT = {**os.environ, "PATH": f"{PROGRAMS}:{os.environ['PATH']}"}


def run(command, folder, **more):
    return subprocess.run(command, cwd=folder, env={**ENVIRONMENT, **more}, shell=isinstance(command, str),
                          text=True, capture_output=True)


def commands(page):
    """The indented command lines of a page, continued lines joined."""
    lines = re.findall(r"^    (.*)$", page.read_text(), re.M)
    joined = re.sub(r" *\\\n *", " ", "\n".join(lines))
    return [line for line in joined.split("\n") if re.match(r"quelmont-(draw|convert) ", line)]


def fenced(page, language):
    return re.search(rf"```{language}\n(.*?)```", page.read_text(), re.S).group(1)


def geojson(file, kind, coordinates, **columns):
    feature = {"type": "Feature", "properties": columns, "geometry": {"type": kind, "coordinates": coordinates}}
    file.write_text(json.dumps({"type": "FeatureCollection", "features": [feature]}))


class Examples(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("Qmnt4.map", "detail.pkv", "towns.prn"):
            shutil.copy(DATA / name, self.folder)  # an example may write a file of that name

    def succeed(self, command, **more):
        done = run(command, self.folder, **more)
        self.assertEqual(done.returncode, 0, f"{command}\n{done.stderr}")
        return done

    def test_maps_of_the_page_about_quelmont_draw_are_drawn(self):
        self.succeed("quelmont-draw --save-design trip.cnf")
        lines = commands(PAGES / "quelmont-draw.md")
        self.assertGreater(len(lines), 6)
        for line in lines:
            self.succeed(line)
            self.assertGreater((self.folder / line.split()[-1]).stat().st_size, 0, line)

    def test_files_of_the_page_about_quelmont_convert_are_made(self):
        source = self.folder / "source.geojson"
        for name, kind, places, columns in (
            ("coastline.shp", "LineString", [[0, 0], [1, 1], [2, 1]], {"scalerank": 1}),
            ("places.shp", "Point", [6.15, 46.2], {"NAME": "Geneva", "SCALERANK": 3}),
            ("roads.gpkg", "LineString", [[6, 46], [7, 47], [9, 46]], {"class": "A"}),
        ):
            geojson(source, kind, places, **columns)
            self.succeed(["ogr2ogr", name, source])
        geojson(source, "LineString", [[6, 46], [7, 47]])
        self.succeed(["ogr2ogr", "-nlt", "LINESTRING", "-lco", "FORCE_GPX_TRACK=YES", "track.gpx", source])
        lines = commands(PAGES / "quelmont-convert.md")
        self.assertGreater(len(lines), 5)
        for line in lines:
            self.succeed(line)
            output = re.search(r"\.\w+ (\S+\.\w+)", line).group(1)
            self.assertGreater((self.folder / output).stat().st_size, 0, line)
            (self.folder / output).unlink()

    def test_options_on_the_pages_are_those_of_the_programs(self):
        known = set()
        for program in ("quelmont", "quelmont-draw", "quelmont-convert"):
            known |= set(re.findall(r"--[a-z][a-z-]*", run([program, "--help"], self.folder).stdout))
        for page in sorted(PAGES.glob("*.md")):
            text = page.read_text()
            if page.stem == "atlas":  # has options of other programs
                text = "\n".join(re.findall(r"quelmont-draw (.*)", text))
            for option in re.findall(r"(?<![\w-])--[a-z][a-z-]*", text):
                self.assertIn(option, known, page.name)

    def test_an_atlas_is_the_same_in_all_three_ways(self):
        page = PAGES / "atlas.md"
        self.succeed(fenced(page, "awk"))
        table = self.folder / "regions.tsv"
        rows = table.read_text().splitlines()
        self.assertEqual(len(rows), 1008)
        table.write_text("\n".join(rows[::250]) + "\n")
        (self.folder / "Makefile").write_text(fenced(page, "make"))
        (self.folder / "atlas.sh").write_text(fenced(page, "slurm"))
        self.succeed(["make", "-j2"])
        maps = self.folder / "maps"
        made = {file.name: file.read_bytes() for file in maps.iterdir()}
        self.assertEqual(len(made), 5)
        ways = [lambda: [self.succeed("sh atlas.sh", SLURM_ARRAY_TASK_ID=str(task), SLURM_ARRAY_TASK_COUNT="2")
                         for task in (1, 2)],
                lambda: self.succeed(fenced(page, "parallel"))]
        for way in ways:
            shutil.rmtree(maps)
            way()
            self.assertEqual({file.name: file.read_bytes() for file in maps.iterdir()}, made)

    def test_a_map_file_by_hand_is_drawn(self):
        for page, name, options in (("format-prn", "hand.prn", []), ("format-world", "hand.mp1", [])):
            lines = re.findall(r"^    (.*)$", (PAGES / f"{page}.md").read_text(), re.M)
            (self.folder / name).write_text("\n".join(lines) + "\n")
            drawn = self.succeed(["quelmont-draw", "--map", name, "--stats", "hand.png", *options])
            points = len(lines) - (1 if name.endswith("mp1") else 0)
            self.assertEqual(json.loads(drawn.stdout)["map_files"][0]["points_read"], points, page)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
