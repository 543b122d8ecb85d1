#!/usr/bin/python3
"""Make data/Qmnt4.map and data/detail.pkv from Natural Earth.

Qmnt4.map is the world map Quelmont draws when it is given no other, detail.pkv
the map for regions.  Both come from Natural Earth 1:10m (public domain), as
Debian's package libmagics++-data installs it.  Besides that package the script
needs Debian's python3-gdal and python3-numpy, and quelmont-convert, which
scripts/run builds:

    apt-get install libmagics++-data python3-gdal python3-numpy
    tools/make_world_map.py --stats

The script chooses, joins and thins out the lines; quelmont-convert makes the
files of them.  The same source always gives the same bytes, and they are
decoded and checked before they take their places.
"""

import argparse
from itertools import chain
from pathlib import Path

from world_map import files
from world_map.generalise import (MINUTES, SECONDS, in_minutes, in_runs, in_seconds, line_ends,
                                  unique)
from world_map.source import (Rings, area, cells, cut_at_seam, joined, read, require,
                              without_sea_borders)

DEFAULT_SOURCE = Path("/usr") / "share/magics/10m"
PROJECT = Path(__file__).resolve().parent.parent
DEFAULT_CONVERT = PROJECT / "build" / "release" / "bin" / "quelmont-convert"

# Borders that no map should show.
FORGOTTEN = "ForgetMagics"
# Limits within a country, such as a zone without arms; they separate no countries.
INNER_LIMITS = ("Overlay limit", "Lease limit")

# What a map of the world a thousand pixels wide can show: it has 20 minutes,
# some 40 kilometres at the equator, to the pixel.
MAX_RIVER_RANK = 5
MIN_RIVER_LENGTH = 6.0  # degrees of arc
MIN_LAKE_AREA = 2000.0  # square kilometres

# The provinces of a country are all there or none is.  Besides the countries
# with a row of their own there are those whose every border the source shows
# from this zoom on; with the next of them, China, India, Indonesia, Russia and
# South Africa, the east of China and of Europe would be a tangle.
PROVINCE_ROWS = {"AUS": "Australia", "CAN": "Canada", "MEX": "Mexico", "USA": "United States"}
OTHER_PROVINCES = "Other Provinces/States"
MAX_PROVINCE_ZOOM = 3.0

# Later lines are drawn over earlier ones.  The coasts come first, so that the
# shape of the world shows at once; rivers lie under the borders that follow
# them, and the borders of provinces under those of countries.
WORLD_ROWS = ("Coastlines", "Islands", "Lakes", "Rivers", OTHER_PROVINCES, "Canada",
              "United States", "Australia", "Mexico", "Countries")

# Rows of the packed files.  They know provinces of four countries only; the
# others are the parts of a country as Scotland and Wales are.
COAST_ROW = "Coastlines, Islands, Lakes"
SHORE_ROWS = ((10000.0, "Islands and lakes, large"), (500.0, "Islands and lakes, medium"),
              (0.0, "Islands and lakes, small"))  # from so many square kilometres on
RIVER_ROWS = ((3.0, "Rivers, large"), (6.0, "Rivers, medium"),
              (10.0, "Rivers, small"))            # up to this rank
STATE_ROWS = {"AUS": "Australian States", "CAN": "Canadian Provinces", "USA": "U.S. States"}
OTHER_STATES = "Scotland and Wales"
BORDER_ROWS = {
    "International boundary (verify)": "International Boundaries",
    "International boundary (Magics)": "International Boundaries",
    "Disputed (please verify)": "Indefinite or in dispute",
    "Indefinite (please verify)": "Indefinite or in dispute",
    "Lease limit": "Indefinite or in dispute",
    "Line of control (please verify)": "Separation line, land",
    "Overlay limit": "Separation line, land",
    "Indeterminant frontier": "No defined boundary",
}
MAX_RUN = 500  # points; short runs have small boxes, by which a map of a region passes over them


# --------------------------------------------------------------- the world map

def shown_courses(courses):
    """The great rivers, and every river that one of them flows into."""
    shown = set()
    for index, course in enumerate(courses):
        if not course.is_arm and course.rank <= MAX_RIVER_RANK and course.length >= MIN_RIVER_LENGTH:
            while index >= 0 and index not in shown:
                shown.add(index)
                index = courses[index].into
    return [courses[index].points for index in sorted(shown)]


def large_lakes(source):
    """Return the large lakes, and the islands that lie in the sea or in one of these."""
    kept = [area(lake) >= MIN_LAKE_AREA for lake in source.lakes]
    lakes = Rings(source.lakes)

    def is_shown(island):
        middle = (island[0] + island[1]) / 2.0
        return all(kept[index] for index in lakes.around(*middle))

    return ([lake for lake, large in zip(source.lakes, kept) if large],
            [island for island in source.islands if is_shown(island)])


def world_map(source):
    """Return {row: [line, ...]} of Qmnt4.map, in minutes."""
    lakes, islands = large_lakes(source)
    land = Rings(source.continents + source.islands)
    raw = {"Rivers": shown_courses(source.courses)}
    raw["Countries"] = joined([line for kind, lines in source.countries.items()
                               if kind not in (FORGOTTEN, *INNER_LIMITS) for line in lines])
    for country, row in PROVINCE_ROWS.items():
        raw[row] = joined(source.provinces[country])
    raw[OTHER_PROVINCES] = without_sea_borders(
        joined([line for country, lines in source.provinces.items()
                if country not in PROVINCE_ROWS and source.zooms[country] <= MAX_PROVINCE_ZOOM
                for line in lines]), land)
    ends = line_ends(chain.from_iterable(raw.values()))
    for row, rings in (("Coastlines", source.continents), ("Islands", islands), ("Lakes", lakes)):
        raw[row] = [piece for ring in rings if len(cells(ring, MINUTES)) >= 3
                    for piece in cut_at_seam(ring)]
    return {row: unique(filter(None, (in_minutes(line, ends, row == "Rivers") for line in raw[row])))
            for row in WORLD_ROWS}


# -------------------------------------------------------- the map for regions

def row_of(limits, is_in):
    return next(row for limit, row in limits if is_in(limit))


def detail_map(source):
    """Return {row: [line, ...]} of detail.pkv, in seconds."""
    raw = {COAST_ROW: [piece for ring in source.continents for piece in cut_at_seam(ring)]}
    for ring in source.islands + source.lakes:
        size = area(ring)
        raw.setdefault(row_of(SHORE_ROWS, lambda limit: size >= limit), []).extend(cut_at_seam(ring))
    river_rows = {row for _, row in RIVER_ROWS}
    for course in source.courses:
        rank = course.rank
        raw.setdefault(row_of(RIVER_ROWS, lambda limit: rank <= limit), []).append(course.points)
    land = Rings(source.continents + source.islands)
    states = {}
    for country, lines in source.provinces.items():
        states.setdefault(STATE_ROWS.get(country, OTHER_STATES), []).extend(lines)
    for row, lines in states.items():
        lines = joined(lines)
        raw[row] = without_sea_borders(lines, land) if row == OTHER_STATES else lines
    borders = {}
    for kind, lines in source.countries.items():
        if kind != FORGOTTEN:
            borders.setdefault(BORDER_ROWS[kind], []).extend(lines)
    raw.update({row: joined(lines) for row, lines in borders.items()})
    return {row: [run for line in unique(filter(None, (in_seconds(line, row in river_rows)
                                                       for line in lines)))
                  for run in in_runs(line, MAX_RUN)]
            for row, lines in raw.items()}


def main():
    parser = argparse.ArgumentParser(description="Make Quelmont's world maps from Natural Earth.")
    parser.add_argument("--source", type=Path, default=DEFAULT_SOURCE, metavar="FOLDER",
                        help="folder of the 1:10m shapefiles (default: %(default)s)")
    parser.add_argument("--output", type=Path, default=PROJECT / "data", metavar="FOLDER",
                        help="where to write the files (default: data/ of this source tree)")
    parser.add_argument("--convert", type=Path, default=DEFAULT_CONVERT, metavar="PROGRAM",
                        help="quelmont-convert (default: that of build/release)")
    parser.add_argument("--stats", action="store_true", help="print lines and points by row")
    options = parser.parse_args()

    require(options.convert.exists(),
            f"there is no {options.convert}; scripts/run builds it, --convert names another")
    source = read(options.source, SECONDS)
    made = {"Qmnt4.map": files.encoded(world_map(source), MINUTES, ".map", options.convert),
            "detail.pkv": files.encoded(detail_map(source), SECONDS, ".pkv", options.convert)}
    tables = {name: files.check(name, data) for name, data in made.items()}
    for name, data in made.items():
        (options.output / name).write_bytes(data)
        if options.stats:
            files.print_table(name, tables[name], len(data))


if __name__ == "__main__":
    main()
