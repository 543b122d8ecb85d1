"""The map files: written by quelmont-convert, decoded again and checked.

A .map file is a bare run of records, three signed 16-bit little-endian integers
each: code, latitude, longitude, in minutes of arc.  A code of 1000 * rank
starts a new line of that rank, a code of 0 continues the line.

A .pkv file is a run of segments: rank, count of points in two bytes (hundreds
and ones), the bounding box, the first point, then for each further point two
signed bytes, its differences of longitude and latitude in seconds of arc.
"""

import json
import subprocess
import tempfile
from collections import Counter
from pathlib import Path

import numpy as np

from .generalise import MAX_ARC, MAX_LON_STEP, MINUTES, SECONDS
from .source import require

MINUTE_ROWS = {1: "Coastlines", 2: "Countries", 3: "Canada", 4: "United States", 5: "Islands",
               6: "Lakes", 7: "Rivers", 8: "Australia", 9: "Mexico", 10: "Other Provinces/States"}
PACKED_ROWS = {1: "International Boundaries", 2: "Indefinite or in dispute",
               3: "Separation line, land", 8: "No defined boundary",
               9: "Coastlines, Islands, Lakes", 10: "Islands and lakes, large",
               11: "Islands and lakes, medium", 12: "Islands and lakes, small",
               25: "Rivers, large", 26: "Rivers, medium", 27: "Rivers, small",
               37: "U.S. States", 38: "Canadian Provinces", 40: "Australian States",
               41: "Scotland and Wales"}
SHORES = {"Coastlines", "Islands", "Lakes", "Coastlines, Islands, Lakes",
          "Islands and lakes, large", "Islands and lakes, medium", "Islands and lakes, small"}
RIVERS = {"Rivers", "Rivers, large", "Rivers, medium", "Rivers, small"}
MAX_BYTES = {".map": 3_000_000, ".pkv": 12_000_000}
PACKED_HEADER = 24  # bytes of a segment before its differences


def encoded(lines_by_row, units, ending, convert):
    """The bytes of the map file that quelmont-convert makes of lines in units to the degree."""
    collection = {"type": "FeatureCollection", "features": [
        {"type": "Feature",
         "properties": {"row": row},
         "geometry": {"type": "LineString",
                      "coordinates": [(lon / units, lat / units) for lon, lat in line]}}
        for row, lines in lines_by_row.items() for line in lines]}
    with tempfile.TemporaryDirectory() as folder:
        source, target = Path(folder) / "world.geojson", Path(folder) / ("world" + ending)
        source.write_text(json.dumps(collection))
        done = subprocess.run([convert, source, target, "--feature", "@row"], check=False)
        require(done.returncode == 0, f"{convert.name} failed")
        return target.read_bytes()


def decoded_minutes(data):
    """Yield (row, array of lon and lat in minutes) from the bytes of a .map file."""
    require(len(data) % 6 == 0, "the last record is not whole")
    records = np.frombuffer(data, dtype="<i2").reshape(-1, 3).astype(int)
    starts = np.flatnonzero(records[:, 0])
    require(len(starts) > 0 and starts[0] == 0, "the first record starts no line")
    for start, stop in zip(starts, [*starts[1:], len(records)]):
        rank, sub_code = divmod(int(records[start, 0]), 1000)
        require(sub_code == 0 and rank in MINUTE_ROWS, f"code {records[start, 0]}")
        yield MINUTE_ROWS[rank], records[start:stop, [2, 1]]


def decoded_packed(data):
    """Yield (row, array of lon and lat in seconds) from the bytes of a .pkv file."""
    signed = np.frombuffer(data, dtype=np.int8).astype(int)
    at = 0
    while at < len(data):
        require(at + PACKED_HEADER <= len(data), "the last segment is not whole")
        rank, count = data[at], data[at + 1] * 100 + data[at + 2]
        require(rank in PACKED_ROWS and count > 0, f"rank {rank}, {count} points")
        header = signed[at : at + PACKED_HEADER]
        lons = [int(header[i : i + 4] @ (7200, 3600, 60, 1)) for i in (3, 10, 17)]
        lats = [int(header[i : i + 3] @ (3600, 60, 1)) for i in (7, 14, 21)]
        end = at + PACKED_HEADER + 2 * (count - 1)
        require(end <= len(data), "the last segment is not whole")
        steps = signed[at + PACKED_HEADER : end].reshape(-1, 2)
        points = np.vstack([[lons[2], lats[2]], steps]).cumsum(axis=0)
        box = [(lons[0], lats[0]), (lons[1], lats[1])]
        require(np.array_equal(box, [points.min(axis=0), points.max(axis=0)]), "a wrong box")
        yield PACKED_ROWS[rank], points
        at = end


def great_circles(points, units):
    """Lengths of a line's segments on the sphere, in minutes of arc."""
    lon, lat = np.radians(points / units).T
    half = (np.sin(np.diff(lat) / 2) ** 2
            + np.cos(lat[:-1]) * np.cos(lat[1:]) * np.sin(np.diff(lon) / 2) ** 2)
    return np.degrees(2 * np.arcsin(np.sqrt(half))) * 60.0


def faults_of(row, points, units):
    """Yield what is wrong with one line of a map, in words."""
    if len(points) < 2:
        yield "a single point"
        return
    lon, lat = points.T
    if np.any(np.abs(lon) > 180 * units) or np.any(np.abs(lat) > 90 * units):
        yield "a point off the globe"
    if np.any(np.all(points[1:] == points[:-1], axis=1)):
        yield "a repeated point"
    if np.any(np.abs(np.diff(lon)) > MAX_LON_STEP * units / MINUTES):
        yield "too long a step in longitude"
    if great_circles(points, units).max() > MAX_ARC + 1e-6:
        yield "a segment longer than a degree of arc"
    seam, pole = np.abs(lon) == 180 * units, np.abs(lat) == 90 * units
    if row in SHORES and (np.any(seam[:-1] & seam[1:]) or pole.any()):
        yield "a stretch along the seam or at a pole"
    if row in RIVERS and np.all(points[0] == points[-1]):
        yield "a river that is a ring"


def check(name, data):
    """Check all that a reader of a map counts on; return {row: [lines, points]}.

    A reader takes the end of the file for the end of the last line, which has
    to be more than a start; so has every other line.  A shore that is no ring
    goes on where another begins; 180 degrees east and west are one place.
    """
    ending = Path(name).suffix
    require(len(data) < MAX_BYTES[ending], f"{name}: {len(data)} bytes are too many")
    units, lines, rows = {
        ".map": (MINUTES, decoded_minutes, MINUTE_ROWS),
        ".pkv": (SECONDS, decoded_packed, PACKED_ROWS)}[ending]
    table = {row: [0, 0] for row in rows.values()}
    seen, open_ends = set(), Counter()
    for row, points in lines(data):
        where = f"{name}: {row}, line from {points[0]}"
        faults = ", ".join(faults_of(row, points, units))
        require(not faults, f"{where}: {faults}")
        key = (row, min(points.tobytes(), points[::-1].tobytes()))
        require(key not in seen, f"{where}: a repeated line")
        seen.add(key)
        table[row][0] += 1
        table[row][1] += len(points)
        if row in SHORES:
            for (lon, lat), change in ((points[0], 1), (points[-1], -1)):
                open_ends[int(lon) % (360 * units), int(lat)] += change
    left = [place for place, count in open_ends.items() if count]
    require(not left, f"{name}: shores that end at {left}")
    require(all(count for count, _ in table.values()), f"{name}: a row is empty")
    return table


def print_table(name, table, size):
    """Print a table of data/README.md."""
    rows = MINUTE_ROWS if name.endswith(".map") else PACKED_ROWS
    print(f"`{name}`\n\n| Rank | Row | Lines | Points |\n| ---: | :--- | ----: | -----: |")
    for rank, row in rows.items():
        print(f"| {rank} | {row} | {table[row][0]} | {table[row][1]} |")
    lines, points = map(sum, zip(*table.values()))
    print(f"| | All, {size} bytes | {lines} | {points} |\n")
