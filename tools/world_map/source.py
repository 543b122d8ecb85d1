"""What Natural Earth 1:10m holds of a world map, as lines in degrees.

Lines are arrays of longitude and latitude, north and east positive.
"""

import sys
from collections import defaultdict
from dataclasses import dataclass

import numpy as np
from osgeo import ogr

from . import rivers

# Without exceptions these scripts report a missing file themselves.
ogr.DontUseExceptions()

EARTH_RADIUS = 6371.0  # kilometres
EDGE = 1.5e-4          # degrees, half a second, within which a point lies on the seam or pole

SEAM_GAP = 0.01        # degrees by which the ends of one shore differ there

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


def require(condition, complaint):
    if not condition:
        sys.exit(f"no map: {complaint}")


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


def lines_of(geometry):
    return [points_of(line) for line in leaves(geometry, ogr.wkbLineString)]


def outer_rings(geometry):
    for polygon in leaves(geometry, ogr.wkbPolygon):
        yield points_of(polygon.GetGeometryRef(0))


# ---------------------------------------------------------------- geometry

def holds(ring, lon, lat):
    """Whether a closed ring surrounds a point, by counting crossings."""
    x, y = ring[:, 0], ring[:, 1]
    above = y > lat
    crossing = np.flatnonzero(above[:-1] != above[1:])
    along = (lat - y[crossing]) / (y[crossing + 1] - y[crossing])
    hits = x[crossing] + along * (x[crossing + 1] - x[crossing]) > lon
    return bool(np.count_nonzero(hits) % 2)


class Rings:
    """Rings with their bounding boxes, to ask which of them surround a point."""

    def __init__(self, rings):
        self.rings = rings
        self.boxes = np.array([[*ring.min(axis=0), *ring.max(axis=0)] for ring in rings])

    def around(self, lon, lat):
        """Yield the indices of the rings that surround a point."""
        west, south, east, north = self.boxes.T
        for index in np.flatnonzero((west <= lon) & (lon <= east) & (south <= lat) & (lat <= north)):
            if holds(self.rings[index], lon, lat):
                yield int(index)


def area(ring):
    """Area of a ring in square kilometres, on a sphere."""
    lon, lat = np.radians(ring).T
    sines = np.sin(lat)
    return abs(float(np.sum((lon[1:] - lon[:-1]) * (2.0 + sines[:-1] + sines[1:])))) \
        * EARTH_RADIUS ** 2 / 2.0


def on_grid(points, units):
    """Round degrees to whole units, of which a degree has so many, halves upwards."""
    return np.floor(points * units + 0.5).astype(int)


def cells(points, units):
    """The set of different grid points a line in degrees meets."""
    return frozenset(map(tuple, on_grid(points, units).tolist()))


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


def meet_at_seam(rings):
    """Make shores that cross the 180th meridian meet there, in place.

    The source cuts them, and their two ends differ by some seconds of arc.
    """
    ends = {1: [], -1: []}
    for ring in rings:
        x, y = ring[:-1].T
        crossing = (np.abs(x) > 180.0 - EDGE) & (np.abs(y) < 90.0 - EDGE) \
            & ((np.abs(np.roll(x, 1)) < 180.0 - EDGE) | (np.abs(np.roll(x, -1)) < 180.0 - EDGE))
        for index in np.flatnonzero(crossing):
            ends[int(np.sign(x[index]))].append((ring, index))
    for ring, index in ends[-1]:
        other, place = min(ends[1], key=lambda end: abs(end[0][end[1], 1] - ring[index, 1]))
        require(abs(other[place, 1] - ring[index, 1]) < SEAM_GAP,
                f"the shore at {ring[index]} does not go on beyond 180 degrees")
        ring[index, 1] = other[place, 1]
        if index == 0:
            ring[-1] = ring[0]


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


# ---------------------------------------------------------------- the layers

@dataclass
class Source:
    continents: list  # closed rings
    islands: list     # closed rings, those in lakes among them
    lakes: list       # closed rings, the Caspian Sea first
    courses: list     # rivers.Course
    countries: dict   # {class of the border: [line, ...]}
    provinces: dict   # {code of the country, three letters: [line, ...]}
    zooms: dict       # {code of the country: min_zoom from which all its provinces are shown}


def land_rings(folder, units):
    """Return the rings of the continents and those of the islands.

    The layer repeats more than a thousand of its rings; a ring that meets the
    same grid points as an earlier one is left out, and so is one too small to
    meet three different ones.
    """
    seen, rings = set(), []
    for feature, geometry in features(folder, "land"):
        if feature["featurecla"] != "Land" and feature["featurec_2"] != "Minor island":
            continue
        for ring in outer_rings(geometry):
            met = cells(ring, units)
            if len(met) >= 3 and met not in seen:
                seen.add(met)
                rings.append(ring)
    meet_at_seam(rings)
    chosen = []
    for name, (lon, lat) in CONTINENTS.items():
        found = [index for index, ring in enumerate(rings) if holds(ring, lon, lat)]
        require(len(found) == 1, f"{len(found)} rings hold the point given for {name}")
        chosen += found
    islands = [ring for index, ring in enumerate(rings) if index not in chosen]
    return [rings[index] for index in chosen], islands


def lake_rings(folder, units):
    """Return the outlines of the Caspian Sea and of the lakes.

    The layer of the seas holds the lakes as polygons of their own.  The
    Caspian is its second largest polygon of class Ocean.  Islands in lakes
    are among the land's rings already.
    """
    lakes, seas = [], []
    for feature, geometry in features(folder, "ocean"):
        if feature["featurec_2"] in LAKE_CLASSES:
            lakes.extend(ring for ring in outer_rings(geometry) if len(cells(ring, units)) >= 3)
        elif feature["featurecla"] == "Ocean":
            seas.extend(outer_rings(geometry))
    seas.sort(key=area, reverse=True)
    return [seas[1]] + lakes


def read(folder, units):
    """Read the Source, without what disappears on a grid of so many units to the degree."""
    continents, islands = land_rings(folder, units)
    lakes = lake_rings(folder, units)
    shores = rivers.SegmentIndex([*continents, *islands, lakes[0]])
    pieces = [(line, feature["scalerank"], feature["rivernum"])
              for feature, geometry in features(folder, "rivers_lake_centerlines")
              for line in lines_of(geometry)]
    countries, provinces, zooms = defaultdict(list), defaultdict(list), defaultdict(float)
    for feature, geometry in features(folder, "admin_0_boundary_lines_land"):
        countries[feature["featurecla"]].extend(lines_of(geometry))
    for feature, geometry in features(folder, "admin_1_states_provinces_lines"):
        country = feature["adm0_a3"]
        provinces[country].extend(lines_of(geometry))
        zooms[country] = max(zooms[country], feature["min_zoom"])
    return Source(continents, islands, lakes, rivers.courses(pieces, shores, rivers.SegmentIndex(lakes)),
                  dict(countries), dict(provinces), dict(zooms))


def without_sea_borders(lines, rings):
    """Drop the lines wholly at sea, where they would be strokes without a map.

    Provinces that are islands have their border in the straits between them.
    """
    def crosses_land(line):
        return any(next(rings.around(lon, lat), None) is not None
                   for lon, lat in (line[:-1] + line[1:]) / 2.0)

    return [line for line in lines if crosses_land(line)]
