#!/usr/bin/python3
"""Make data/Qmnt4.map, the world map Quelmont draws when it is given no other.

The map is generalised from Natural Earth 1:10m (public domain), as Debian's
package libmagics++-data installs it.  Besides that package the script needs
Debian's python3-gdal and python3-numpy, and quelmont-convert, which scripts/run
builds:

    apt-get install libmagics++-data python3-gdal python3-numpy
    tools/make_world_map.py --stats

The script chooses, joins and thins out the lines; quelmont-convert makes the
file of them.  That is a bare run of records, three signed 16-bit little-endian
integers each: code, latitude, longitude.  The angles are whole minutes of
arc, north and east positive.  A code of 1000 * rank starts a new line of that
rank, a code of 0 continues the line.  The same source always gives the same
bytes, and they are decoded and checked before the script ends.
"""

import argparse
import json
import math
import subprocess
import sys
import tempfile
from collections import defaultdict
from pathlib import Path

import numpy as np
from osgeo import ogr

# Without exceptions a missing file is told in the words of this script.
ogr.DontUseExceptions()

DEFAULT_SOURCE = Path("/usr") / "share/magics/10m"
PROJECT = Path(__file__).resolve().parent.parent
DEFAULT_OUTPUT = PROJECT / "data" / "Qmnt4.map"
DEFAULT_CONVERT = PROJECT / "build" / "release" / "bin" / "quelmont-convert"

COAST, COUNTRY, CANADA, USA, ISLAND, LAKE, RIVER, AUSTRALIA, MEXICO, OTHER = range(1, 11)
RANK_NAMES = {
    COAST: "Coastlines", COUNTRY: "Countries", CANADA: "Canada", USA: "United States",
    ISLAND: "Islands", LAKE: "Lakes", RIVER: "Rivers", AUSTRALIA: "Australia",
    MEXICO: "Mexico", OTHER: "Other Provinces/States",
}
PROVINCE_RANKS = {"AUS": AUSTRALIA, "CAN": CANADA, "MEX": MEXICO, "USA": USA}

# Later lines are drawn over earlier ones.  The coasts come first, so that the
# shape of the world shows at once; rivers lie under the borders that follow
# them, and the borders of provinces under those of countries.
DRAWING_ORDER = [COAST, ISLAND, LAKE, RIVER, OTHER, CANADA, USA, AUSTRALIA, MEXICO, COUNTRY]

# A point inside each ring that counts as a continent, as (longitude, latitude).
# The list is by hand because size does not tell: Greenland is an island and
# has a quarter of Australia's area, while the piece of Chukotka beyond the
# 180th meridian belongs to Asia and is smaller than Java.
CONTINENTS = {
    "Africa and Eurasia": (20.0, 20.0),
    "the Americas": (-100.0, 40.0),
    "Antarctica": (0.0, -80.0),
    "Australia": (135.0, -25.0),
    "Chukotka beyond 180": (-175.0, 66.5),
}

LAKE_CLASSES = ("Lake", "Reservoir", "Alkaline Lake")

# The densest rivers and provinces that still leave a map of the world, about
# 20 minutes of arc to the pixel, readable.
MAX_RIVER_SCALERANK = 6
MAX_PROVINCE_ZOOM = 6.0

TOLERANCE = 0.5      # minutes of arc a dropped point may lie off the line
MIN_COSINE = 0.5     # beyond 60 degrees the tolerance in longitude grows no more
MAX_ARC = 60.0       # minutes of arc between neighbouring points
MAX_LON_STEP = 300   # minutes of longitude between neighbours, for high latitudes
ROUNDING = 1.5       # minutes by which rounding both ends can lengthen a segment
SEAM = 10800         # minutes of longitude of the 180th meridian
POLE = 5400          # minutes of latitude of a pole
MAX_BYTES = 3_000_000
EDGE = 1e-6          # degrees within which a source point lies on the seam or pole


def require(condition, complaint):
    if not condition:
        sys.exit(f"no map: {complaint}")


# ---------------------------------------------------------------- the source

def features(folder, name):
    """Yield (feature, geometry) of a shapefile; some records have no geometry."""
    path = folder / f"ne_10m_{name}.shp"
    dataset = ogr.Open(str(path))
    require(dataset is not None, f"cannot read {path}")
    for feature in dataset.GetLayer(0):
        geometry = feature.GetGeometryRef()
        if geometry is not None and not geometry.IsEmpty():
            yield feature, geometry


def leaves(geometry, wanted):
    """Yield the simple geometries of one flat type inside a compound one."""
    if ogr.GT_Flatten(geometry.GetGeometryType()) == wanted:
        yield geometry
        return
    for index in range(geometry.GetGeometryCount()):
        yield from leaves(geometry.GetGeometryRef(index), wanted)


def points_of(curve):
    """An (n, 2) array of longitude and latitude in degrees."""
    return np.array(curve.GetPoints(), dtype=float)[:, :2]


def outer_rings(geometry):
    for polygon in leaves(geometry, ogr.wkbPolygon):
        yield points_of(polygon.GetGeometryRef(0))


def holds(ring, lon, lat):
    """Whether a closed ring surrounds a point, by counting crossings."""
    x, y = ring[:, 0], ring[:, 1]
    above = y > lat
    crossing = np.flatnonzero(above[:-1] != above[1:])
    along = (lat - y[crossing]) / (y[crossing + 1] - y[crossing])
    hits = x[crossing] + along * (x[crossing + 1] - x[crossing]) > lon
    return bool(np.count_nonzero(hits) % 2)


def crosses_land(line, rings, boxes):
    """Whether any segment of a line has its middle on land.

    boxes has a row of least and greatest longitude and latitude for each ring.
    """
    for lon, lat in (line[:-1] + line[1:]) / 2.0:
        near = ((boxes[:, 0] <= lon) & (lon <= boxes[:, 1])
                & (boxes[:, 2] <= lat) & (lat <= boxes[:, 3]))
        if any(holds(rings[index], lon, lat) for index in np.flatnonzero(near)):
            return True
    return False


def without_sea_borders(lines, rings):
    """Drop the lines wholly at sea, where they would be strokes without a map.

    Provinces that are islands have their border in the straits between them.
    """
    boxes = np.array([np.array([ring.min(axis=0), ring.max(axis=0)]).T.ravel() for ring in rings])
    return [line for line in lines if crosses_land(line, rings, boxes)]


def ring_size(ring):
    """Area of a ring in square degrees, near enough to sort rings by."""
    x, y = ring[:, 0], ring[:, 1]
    return abs(float(np.sum(x[:-1] * y[1:] - x[1:] * y[:-1]))) / 2.0


def grid_cells(points):
    """The set of different minutes a line in degrees meets."""
    return frozenset(map(tuple, to_minutes(points).tolist()))


def land_rings(folder):
    """Return the rings of the continents and those of the islands.

    The layer repeats more than a thousand of its rings; a ring that meets the
    same minutes as an earlier one is left out, and so is one too small to
    keep three different minutes.
    """
    seen, rings = set(), []
    for feature, geometry in features(folder, "land"):
        if feature["featurecla"] != "Land" and feature["featurec_2"] != "Minor island":
            continue
        for ring in outer_rings(geometry):
            cells = grid_cells(ring)
            if len(cells) >= 3 and cells not in seen:
                seen.add(cells)
                rings.append(ring)
    chosen = []
    for name, (lon, lat) in CONTINENTS.items():
        found = [index for index, ring in enumerate(rings) if holds(ring, lon, lat)]
        require(len(found) == 1, f"{len(found)} rings hold the point given for {name}")
        chosen += found
    islands = [ring for index, ring in enumerate(rings) if index not in chosen]
    return [rings[index] for index in chosen], islands


def lake_rings(folder):
    """Return the outlines of the lakes and of the Caspian Sea.

    The layer of the seas holds the lakes as polygons of their own.  The
    Caspian is its second largest polygon of class Ocean.  Islands in lakes
    are among the land's rings already.
    """
    lakes, seas = [], []
    for feature, geometry in features(folder, "ocean"):
        if feature["featurec_2"] in LAKE_CLASSES:
            lakes.extend(ring for ring in outer_rings(geometry) if len(grid_cells(ring)) >= 3)
        elif feature["featurecla"] == "Ocean":
            seas.extend(outer_rings(geometry))
    seas.sort(key=ring_size, reverse=True)
    return [seas[1]] + lakes


def border_lines(folder):
    """Return the open lines by rank: countries, provinces and rivers."""
    lines = {rank: [] for rank in (COUNTRY, RIVER, OTHER, *PROVINCE_RANKS.values())}

    def add(rank, geometry):
        lines[rank].extend(points_of(line) for line in leaves(geometry, ogr.wkbLineString))

    for feature, geometry in features(folder, "admin_0_boundary_lines_land"):
        if feature["featurecla"] != "ForgetMagics":
            add(COUNTRY, geometry)
    for feature, geometry in features(folder, "admin_1_states_provinces_lines"):
        rank = PROVINCE_RANKS.get(feature["adm0_a3"], OTHER)
        if rank != OTHER or feature["min_zoom"] <= MAX_PROVINCE_ZOOM:
            add(rank, geometry)
    for feature, geometry in features(folder, "rivers_lake_centerlines"):
        if feature["featurecla"] == "River" and feature["scalerank"] <= MAX_RIVER_SCALERANK:
            add(RIVER, geometry)
    return lines


# ------------------------------------------------------------ generalisation

def to_minutes(points):
    """Round degrees to the minute grid, halves upwards."""
    return np.floor(points * 60.0 + 0.5).astype(int)


def cut_at_seam(ring):
    """Drop the stretches of a ring that run along 180 degrees or the pole.

    They are not shore but where the source was cut to fit a rectangle.  A ring
    without any comes back whole, any other as open lines ending on the seam.
    """
    x, y = ring[:, 0], ring[:, 1]
    on_seam = np.abs(x) > 180.0 - EDGE
    on_pole = np.abs(y) > 90.0 - EDGE
    false_shore = (on_seam[:-1] & on_seam[1:]) | (on_pole[:-1] & on_pole[1:])
    if not false_shore.any():
        return [ring]
    start = int(np.flatnonzero(false_shore)[0]) + 1
    turned = np.concatenate([ring[start:-1], ring[: start + 1]])
    false_shore = np.roll(false_shore, -start)
    pieces, begin = [], 0
    for index in np.flatnonzero(false_shore):
        if index > begin:
            pieces.append(turned[begin : index + 1])
        begin = index + 1
    return pieces


def node_key(point):
    return (round(float(point[0]), 6), round(float(point[1]), 6))


def joined(lines):
    """Join lines wherever exactly two of them end.

    The source breaks its borders into pieces of a few points, which would
    keep more points than they need and start a dashed pen anew each time.
    """
    touching = defaultdict(list)
    for index, line in enumerate(lines):
        touching[node_key(line[0])].append(index)
        touching[node_key(line[-1])].append(index)
    used = set()

    def lengthened(chain):
        while True:
            node = node_key(chain[-1])
            following = [index for index in touching[node] if index not in used]
            if len(touching[node]) != 2 or not following:
                return chain
            used.add(following[0])
            piece = lines[following[0]]
            if node_key(piece[0]) != node:
                piece = piece[::-1]
            chain = np.concatenate([chain, piece[1:]])

    chains = []
    for index, line in enumerate(lines):
        if index not in used:
            used.add(index)
            chains.append(lengthened(lengthened(line)[::-1])[::-1])
    return chains


def line_ends(lines_by_rank):
    """Where open lines end; whatever runs through such a point keeps it."""
    ends = set()
    for lines in lines_by_rank.values():
        for line in lines:
            ends.update((node_key(line[0]), node_key(line[-1])))
    return ends


def arc_length(start, end):
    """Upper bound, in minutes of arc, of a segment between points in minutes."""
    cosine = math.cos(math.radians(min(abs(start[1]), abs(end[1])) / 60.0))
    return math.hypot((end[0] - start[0]) * cosine, end[1] - start[1])


def off_segment(points, start, end):
    """Distances of points from the segment between two of them, in minutes."""
    cosine = max(math.cos(math.radians((start[1] + end[1]) / 120.0)), MIN_COSINE)
    scale = np.array([cosine, 1.0])
    along = (end - start) * scale
    offset = (points - start) * scale
    square = float(along @ along)
    if square > 0.0:
        share = np.clip(offset @ along / square, 0.0, 1.0)
        offset = offset - share[:, None] * along
    return np.hypot(offset[:, 0], offset[:, 1])


def thin_out(points, fixed):
    """Indices of the points to keep of a line in (unrounded) minutes.

    A stretch is replaced by its chord when no point lies further off than
    TOLERANCE and the chord is no longer than MAX_ARC; otherwise it is split,
    at the farthest point or near the middle.
    """
    stops = sorted({0, len(points) - 1, *fixed})
    keep = set(stops)
    pending = list(zip(stops, stops[1:]))
    while pending:
        first, last = pending.pop()
        if last - first < 2:
            continue
        inner = points[first + 1 : last]
        distance = off_segment(inner, points[first], points[last])
        if distance.max() > TOLERANCE:
            split = first + 1 + int(distance.argmax())
        elif arc_length(points[first], points[last]) > MAX_ARC:
            middle = (points[first] + points[last]) / 2.0
            split = first + 1 + int(np.abs(inner - middle).sum(axis=1).argmin())
        else:
            continue
        keep.add(split)
        pending += [(first, split), (split, last)]
    return sorted(keep)


def without_repeats(points):
    return points[np.concatenate([[True], np.any(points[1:] != points[:-1], axis=1)])]


def filled_in(points):
    """Insert points where neighbours on the grid are too far apart."""
    result = [tuple(points[0])]
    for start, end in zip(points[:-1], points[1:]):
        parts = max(1, math.ceil(abs(end[0] - start[0]) / MAX_LON_STEP))
        if arc_length(start, end) > MAX_ARC:
            parts = max(parts, math.ceil(arc_length(start, end) / (MAX_ARC - ROUNDING)))
        for part in range(1, parts + 1):
            step = start + (end - start) * (part / parts)
            result.append(tuple(np.floor(step + 0.5).astype(int)))
    return result


def generalised(line, ends):
    """Turn a line in degrees into a list of (lon, lat) in minutes, or None.

    A ring that thinning would flatten keeps all the minutes it meets.
    """
    closed = bool(np.all(line[0] == line[-1]))
    fixed = [index for index, point in enumerate(line) if node_key(point) in ends]
    kept = line[thin_out(line * 60.0, fixed)]
    minutes = without_repeats(to_minutes(kept))
    if closed and len(grid_cells(kept)) < 3:
        minutes = without_repeats(to_minutes(line))
    if len(minutes) < 2:
        return None
    return [(int(lon), int(lat)) for lon, lat in filled_in(minutes)]


def world(folder):
    """Return {rank: [line, ...]} of the finished lines, in minutes."""
    continents, islands = land_rings(folder)
    raw = {rank: joined(lines) for rank, lines in border_lines(folder).items()}
    raw[OTHER] = without_sea_borders(raw[OTHER], continents + islands)
    ends = line_ends(raw)
    for rank, rings in ((COAST, continents), (ISLAND, islands), (LAKE, lake_rings(folder))):
        raw[rank] = [piece for ring in rings for piece in cut_at_seam(ring)]
    result = {}
    for rank in DRAWING_ORDER:
        # A dictionary keeps the order of the source and drops repeated lines,
        # in whichever direction they run.
        unique = {}
        for line in raw[rank]:
            points = generalised(line, ends)
            if points:
                unique.setdefault(min(tuple(points), tuple(reversed(points))), points)
        result[rank] = list(unique.values())
    return result


# ------------------------------------------------------------------ the file

def collection(lines_by_rank):
    """The lines as GeoJSON, each with the name of its row, in drawing order."""
    features = [
        {"type": "Feature",
         "properties": {"row": RANK_NAMES[rank]},
         "geometry": {"type": "LineString",
                      "coordinates": [(lon / 60.0, lat / 60.0) for lon, lat in line]}}
        for rank in DRAWING_ORDER for line in lines_by_rank[rank]]
    return {"type": "FeatureCollection", "features": features}


def encoded(lines_by_rank, convert):
    """The bytes of the map file, as quelmont-convert writes it."""
    with tempfile.TemporaryDirectory() as folder:
        source, target = Path(folder) / "world.geojson", Path(folder) / "world.map"
        source.write_text(json.dumps(collection(lines_by_rank)))
        done = subprocess.run([convert, source, target, "--feature", "@row"], check=False)
        require(done.returncode == 0, f"{convert.name} failed")
        return target.read_bytes()


def decoded(data):
    """Yield (rank, array of lon and lat in minutes) from the bytes of a map."""
    require(len(data) % 6 == 0, "the last record is not whole")
    records = np.frombuffer(data, dtype="<i2").reshape(-1, 3).astype(int)
    starts = np.flatnonzero(records[:, 0])
    require(len(starts) > 0 and starts[0] == 0, "the first record starts no line")
    for start, stop in zip(starts, [*starts[1:], len(records)]):
        rank, sub_code = divmod(int(records[start, 0]), 1000)
        require(sub_code == 0 and rank in RANK_NAMES, f"code {records[start, 0]}")
        yield rank, records[start:stop, [2, 1]]


def great_circles(points):
    """Lengths of a line's segments on the sphere, in minutes of arc."""
    lon, lat = np.radians(points / 60.0).T
    half = (np.sin(np.diff(lat) / 2) ** 2
            + np.cos(lat[:-1]) * np.cos(lat[1:]) * np.sin(np.diff(lon) / 2) ** 2)
    return np.degrees(2 * np.arcsin(np.sqrt(half))) * 60.0


def faults_of(rank, points):
    """Yield what is wrong with one line of the map, in words."""
    if len(points) < 2:
        yield "a single point"
        return
    lon, lat = points.T
    if np.any(np.abs(lon) > SEAM) or np.any(np.abs(lat) > POLE):
        yield "a point off the globe"
    if np.any(np.all(points[1:] == points[:-1], axis=1)):
        yield "a repeated point"
    if np.any(np.abs(np.diff(lon)) > MAX_LON_STEP):
        yield "too long a step in longitude"
    if great_circles(points).max() > MAX_ARC + 1e-6:
        yield "a segment longer than a degree of arc"
    seam, pole = np.abs(lon) == SEAM, np.abs(lat) == POLE
    if np.any(seam[:-1] & seam[1:]) or pole.any():
        yield "a stretch along the seam or at a pole"
    closed = np.all(points[0] == points[-1]) or (seam[0] and seam[-1])
    if rank in (COAST, ISLAND, LAKE) and not closed:
        yield "an open ring"


def check(data):
    """Check all that a reader of the map counts on; return {rank: (lines, points)}.

    A reader takes the end of the file for the end of the last line, which has
    to be more than a start; so has every other line.
    """
    require(len(data) < MAX_BYTES, f"{len(data)} bytes are too many")
    table = dict.fromkeys(RANK_NAMES, (0, 0))
    seen = set()
    for rank, points in decoded(data):
        where = f"rank {rank}, line from {points[0]}"
        faults = ", ".join(faults_of(rank, points))
        require(not faults, f"{where}: {faults}")
        forward = tuple(map(tuple, points.tolist()))
        key = (rank, min(forward, forward[::-1]))
        require(key not in seen, f"{where}: a repeated line")
        seen.add(key)
        lines, total = table[rank]
        table[rank] = (lines + 1, total + len(points))
    require(all(lines for lines, _ in table.values()), "a rank is empty")
    return table


def print_table(table, size):
    """Print the table of data/README.md."""
    print("| Rank | Name | Lines | Points |\n| ---: | :--- | ----: | -----: |")
    for rank, (lines, points) in table.items():
        print(f"| {rank} | {RANK_NAMES[rank]} | {lines} | {points} |")
    lines, points = map(sum, zip(*table.values()))
    print(f"| | All, {size} bytes | {lines} | {points} |")


def main():
    parser = argparse.ArgumentParser(description="Make Quelmont's world map from Natural Earth.")
    parser.add_argument("--source", type=Path, default=DEFAULT_SOURCE, metavar="FOLDER",
                        help="folder of the 1:10m shapefiles (default: %(default)s)")
    parser.add_argument("--output", type=Path, default=DEFAULT_OUTPUT, metavar="FILE",
                        help="map file to write (default: data/Qmnt4.map of this source tree)")
    parser.add_argument("--convert", type=Path, default=DEFAULT_CONVERT, metavar="PROGRAM",
                        help="quelmont-convert (default: that of build/release)")
    parser.add_argument("--stats", action="store_true", help="print lines and points by rank")
    options = parser.parse_args()

    require(options.convert.exists(),
            f"there is no {options.convert}; scripts/run builds it, --convert names another")
    data = encoded(world(options.source), options.convert)
    table = check(data)
    options.output.write_bytes(data)
    require(options.output.read_bytes() == data, f"{options.output} was not written whole")
    if options.stats:
        print_table(table, len(data))


if __name__ == "__main__":
    main()
