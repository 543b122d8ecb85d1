"""Rivers as whole courses, each one line from its head to its mouth.

The source has every river in pieces: one for each name it bears, broken again
where another river joins it and where it enters a lake, whose stretch is in a
class of its own.  Most pieces end a few metres short of each other.  Here they
become a network; the network is directed by the places where it reaches the
sea, and divided into main stems and tributaries.
"""

import heapq
import math
from collections import defaultdict
from dataclasses import dataclass

import numpy as np

SNAP = 0.02        # degrees within which the end of a piece belongs to another piece
SAME_NODE = 0.003  # degrees within which ends are one node
SLIVER = 0.1       # degrees of length below which a piece that returns to its start is a slip
MOUTH = 0.1        # degrees from the sea at which a river may end in it
HEAD = 0.02        # the same for the end where the source has the river's head
CELL = 0.5         # degrees of a cell of the index of segments


@dataclass
class Edge:
    """A stretch of river between two nodes of the network."""
    first: int
    last: int
    points: np.ndarray  # longitude and latitude in degrees, from the first node to the last
    rank: float         # scalerank of the source: 0 for the greatest rivers, 10 for the least
    number: int         # the source's number of the river; 0 says nothing
    length: float       # degrees of arc

    def other(self, node):
        return self.last if node == self.first else self.first

    def towards(self, node):
        return self.points if node == self.last else self.points[::-1]


@dataclass
class Course:
    """A river from its head to its mouth, or a side arm."""
    points: np.ndarray
    rank: float           # the least of its stretches'
    length: float         # degrees of arc
    into: int = -1        # index of the course it flows into, -1 for the sea or an inland end
    is_arm: bool = False  # leaves a river and does not belong to its main stem


def length_of(points):
    lon, lat = points.T
    cosine = np.cos(np.radians((lat[1:] + lat[:-1]) / 2.0))
    return float(np.hypot(np.diff(lon) * cosine, np.diff(lat)).sum())


class SegmentIndex:
    """Finds the segment of many lines that passes nearest to a point."""

    def __init__(self, lines):
        self.start = np.concatenate([line[:-1] for line in lines])
        self.end = np.concatenate([line[1:] for line in lines])
        self.owner = np.concatenate([np.full(len(line) - 1, at) for at, line in enumerate(lines)])
        self.place = np.concatenate([np.arange(len(line) - 1) for line in lines])
        self.cells = defaultdict(list)
        low = np.floor(np.minimum(self.start, self.end) / CELL).astype(int)
        high = np.floor(np.maximum(self.start, self.end) / CELL).astype(int)
        for at, ((west, south), (east, north)) in enumerate(zip(low.tolist(), high.tolist())):
            for x in range(west, east + 1):
                for y in range(south, north + 1):
                    self.cells[x, y].append(at)

    def nearest(self, point, but=-1):
        """(distance in degrees of arc, owner, place in it, nearest point), not on the owner `but`.

        Segments more than a cell away may be overlooked: the distance is then infinite.
        """
        x, y = math.floor(point[0] / CELL), math.floor(point[1] / CELL)
        near = [at for i in (-1, 0, 1) for j in (-1, 0, 1) for at in self.cells.get((x + i, y + j), ())
                if self.owner[at] != but]
        if not near:
            return math.inf, -1, -1, point
        scale = np.array([math.cos(math.radians(point[1])), 1.0])
        offset = (point - self.start[near]) * scale
        along = (self.end[near] - self.start[near]) * scale
        square = np.maximum((along * along).sum(axis=1), 1e-18)
        share = np.clip((offset * along).sum(axis=1) / square, 0.0, 1.0)
        distance = np.hypot(*(offset - along * share[:, None]).T)
        best = int(distance.argmin())
        at = near[best]
        foot = self.start[at] + (self.end[at] - self.start[at]) * share[best]
        return float(distance[best]), int(self.owner[at]), int(self.place[at]), foot


class Nodes:
    """Places that are one node when they were united or lie close together."""

    def __init__(self):
        self.places, self.parent, self.is_foot = [], [], []

    def add(self, place, is_foot=False):
        self.places.append(place)
        self.parent.append(len(self.parent))
        self.is_foot.append(is_foot)
        return len(self.parent) - 1

    def root(self, node):
        while self.parent[node] != node:
            self.parent[node] = self.parent[self.parent[node]]
            node = self.parent[node]
        return node

    def unite(self, one, other):
        one, other = self.root(one), self.root(other)
        # A foot lies on another line, where the node has to be.
        if self.is_foot[other] and not self.is_foot[one]:
            one, other = other, one
        self.parent[other] = one

    def unite_close(self):
        cells = defaultdict(list)
        for node, place in enumerate(self.places):
            x, y = math.floor(place[0] / SAME_NODE), math.floor(place[1] / SAME_NODE)
            for i in (-1, 0, 1):
                for j in (-1, 0, 1):
                    for other in cells.get((x + i, y + j), ()):
                        if np.hypot(*(self.places[other] - place)) <= SAME_NODE:
                            self.unite(other, node)
            cells[x, y].append(node)


def network(pieces):
    """Return the edges, and the place of each node, of (points, rank, number) pieces."""
    index = SegmentIndex([points for points, _, _ in pieces])
    nodes = Nodes()
    ends = [(nodes.add(points[0]), nodes.add(points[-1])) for points, _, _ in pieces]
    cuts = defaultdict(list)
    for at, (points, _, _) in enumerate(pieces):
        for node, place in zip(ends[at], (points[0], points[-1])):
            distance, owner, segment, foot = index.nearest(place, but=at)
            if distance > SNAP:
                continue
            line = pieces[owner][0]
            close = [ends[owner][end] for end, point in ((0, line[0]), (1, line[-1]))
                     if np.hypot(*(point - foot)) <= SAME_NODE]
            if close:
                nodes.unite(close[0], node)
            else:
                cut = nodes.add(foot, is_foot=True)
                cuts[owner].append((segment, float(np.hypot(*(foot - line[segment]))), cut))
                nodes.unite(cut, node)
    nodes.unite_close()
    edges = []
    for at, (points, rank, number) in enumerate(pieces):
        stops = [(0, 0.0, ends[at][0]), *sorted(cuts[at]), (len(points) - 2, math.inf, ends[at][1])]
        for (begin, _, first), (end, _, last) in zip(stops, stops[1:]):
            first, last = nodes.root(first), nodes.root(last)
            inner = points[begin + 1 : end + 1]
            line = np.vstack([nodes.places[first], inner, nodes.places[last]])
            line = line[np.concatenate([[True], np.any(line[1:] != line[:-1], axis=1)])]
            length = length_of(line) if len(line) > 1 else 0.0
            if first != last:
                edges.append(Edge(first, last, line, rank, number, length))
            elif length > SLIVER:
                # A loop around an island: two arms, so that no line is a ring.
                far = int(np.hypot(*(line - line[0]).T).argmax())
                middle = nodes.add(line[far])
                for a, b, arm in ((first, middle, line[: far + 1]), (middle, last, line[far:])):
                    edges.append(Edge(a, b, arm, rank, number, length_of(arm)))
    return edges, nodes.places


def components(edges, meeting):
    """Yield the sets of nodes that hang together."""
    seen = set()
    for start in meeting:
        if start in seen:
            continue
        group, pending = set(), [start]
        while pending:
            node = pending.pop()
            if node not in group:
                group.add(node)
                pending += [edges[at].other(node) for at in meeting[node]]
        seen |= group
        yield group


def mouths(group, edges, meeting, places, shores, lakes):
    """The nodes by which the water of a connected network leaves it.

    The source draws most rivers downstream, which tells where one ends inland.
    """
    ends = sorted(node for node in group if len(meeting[node]) == 1)
    from_sea = {node: shores.nearest(places[node])[0] for node in group}
    drawn_down = [node for node in ends if edges[meeting[node][0]].last == node]
    found = [node for node in ends if from_sea[node] <= (MOUTH if node in drawn_down else HEAD)]
    if found:
        return found
    nearest = min(sorted(group), key=from_sea.get)  # where the arms of a mouth come together
    if from_sea[nearest] <= MOUTH:
        return [nearest]

    def inland(node):
        edge = edges[meeting[node][0]]
        return lakes.nearest(places[node])[0] > HEAD, edge.rank, -edge.length

    return [min(drawn_down or ends or [nearest], key=inland)]


def downstream(edges, meeting, sinks):
    """{node: edge} leading each node to a mouth, along the greater rivers where there is a choice."""
    cost = {node: 0.0 for node in sinks}
    leads = {}
    pending = [(0.0, node) for node in sinks]
    while pending:
        reached, node = heapq.heappop(pending)
        if reached > cost[node]:
            continue
        for at in meeting[node]:
            edge = edges[at]
            total = reached + edge.length * 2.0 ** edge.rank
            if total < cost.get(edge.other(node), math.inf):
                cost[edge.other(node)] = total
                leads[edge.other(node)] = at
                heapq.heappush(pending, (total, edge.other(node)))
    return leads


def stems(edges, leads, sinks):
    """Yield (edges from mouth to head, node at the mouth) of main stems, then of tributaries."""
    above = defaultdict(list)
    for node, at in leads.items():
        above[edges[at].other(node)].append((at, node))
    # Farthest first, so that a node's reach is known before the one below it asks.
    order, pending = [], list(sinks)
    while pending:
        node = pending.pop()
        order.append(node)
        pending += [up for _, up in above[node]]
    reach = {}
    for node in reversed(order):
        reach[node] = max((edges[at].length + reach[up] for at, up in above[node]), default=0.0)

    def main_first(node, number):
        return sorted(above[node], key=lambda step: (
            not (number and edges[step[0]].number == number), edges[step[0]].rank,
            -(edges[step[0]].length + reach[step[1]])))

    pending = [(node, step) for node in sinks for step in main_first(node, 0)]
    while pending:
        mouth, (at, node) = pending.pop(0)
        stem, number = [at], edges[at].number
        while True:
            # Where three rivers meet, a few metres of another one may lie between.
            if edges[at].length > 2.0 * SNAP:
                number = edges[at].number
            following = main_first(node, number)
            pending += [(node, step) for step in following[1:]]
            if not following:
                break
            at, node = following[0]
            stem.append(at)
        yield stem, mouth


def courses(pieces, shores, lakes):
    """Return the courses of (points, rank, number) pieces, main stems before what joins them.

    shores and lakes are a SegmentIndex each, of the coasts and of the lakes' outlines.
    """
    edges, places = network(pieces)
    meeting = defaultdict(list)
    for at, edge in enumerate(edges):
        meeting[edge.first].append(at)
        meeting[edge.last].append(at)
    found, on_course, used = [], {}, set()
    for group in components(edges, meeting):
        sinks = mouths(group, edges, meeting, places, shores, lakes)
        for stem, mouth in stems(edges, downstream(edges, meeting, sinks), sinks):
            node, lines = mouth, []
            for at in stem:
                lines.append(edges[at].towards(node))
                node = edges[at].other(node)
                on_course.setdefault(node, len(found))
            points = np.concatenate([lines[-1], *(line[1:] for line in reversed(lines[:-1]))])
            used.update(stem)
            found.append(Course(points, min(edges[at].rank for at in stem),
                                sum(edges[at].length for at in stem),
                                on_course.get(mouth, -1)))
    for at, edge in enumerate(edges):
        if at not in used:
            found.append(Course(edge.points, edge.rank, edge.length,
                                on_course.get(edge.last, -1), True))
    return found
