"""Lines in degrees made fit for the grid of a map file."""

import math

import numpy as np

from .source import cells, node_key, on_grid

MINUTES = 60         # of arc to the degree
SECONDS = 3600

TOLERANCE = 0.5      # minutes of arc a dropped point may lie off the line
MIN_COSINE = 0.5     # beyond 60 degrees the tolerance in longitude grows no more
MAX_ARC = 60.0       # minutes of arc between neighbouring points
MAX_LON_STEP = 300   # minutes of longitude between neighbours, for high latitudes
ROUNDING = 1.5       # minutes by which rounding both ends can lengthen a segment


def line_ends(lines):
    """Where open lines end; whatever runs through such a point keeps it."""
    ends = set()
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


def without_loops(points):
    """Leave out what lies between two visits to one grid point.

    A river that winds through one grid point twice would close a ring there.
    """
    path, place = [], {}
    for point in map(tuple, points.tolist()):
        if point in place:
            for left in path[place[point] + 1 :]:
                del place[left]
            del path[place[point] + 1 :]
        else:
            place[point] = len(path)
            path.append(point)
    return np.array(path)


def filled_in(points):
    """Insert points where neighbours on the grid of minutes are too far apart."""
    result = [tuple(points[0])]
    for start, end in zip(points[:-1], points[1:]):
        parts = max(1, math.ceil(abs(end[0] - start[0]) / MAX_LON_STEP))
        if arc_length(start, end) > MAX_ARC:
            parts = max(parts, math.ceil(arc_length(start, end) / (MAX_ARC - ROUNDING)))
        for part in range(1, parts + 1):
            step = start + (end - start) * (part / parts)
            result.append(tuple(np.floor(step + 0.5).astype(int)))
    return result


def in_minutes(line, ends, is_river):
    """A line in degrees as a list of (lon, lat) in minutes, thinned out, or None.

    A ring that thinning would flatten keeps all the minutes it meets.
    """
    closed = bool(np.all(line[0] == line[-1]))
    fixed = [index for index, point in enumerate(line) if node_key(point) in ends]
    kept = line[thin_out(line * MINUTES, fixed)]
    points = without_repeats(on_grid(kept, MINUTES))
    if closed and len(cells(kept, MINUTES)) < 3:
        points = without_repeats(on_grid(line, MINUTES))
    if is_river:
        points = without_loops(points)
    if len(points) < 2:
        return None
    return [(int(lon), int(lat)) for lon, lat in filled_in(points)]


def in_seconds(line, is_river):
    """A line in degrees as a list of (lon, lat) in seconds, or None."""
    points = without_repeats(on_grid(line, SECONDS))
    if is_river:
        points = without_loops(points)
    return list(map(tuple, points.tolist())) if len(points) > 1 else None


def in_runs(line, most):
    """Yield a line in runs of at most so many points, each beginning where the one before ends."""
    for begin in range(0, len(line) - 1, most - 1):
        yield line[begin : begin + most]


def unique(lines):
    """The lines in their order, without repeats in either direction."""
    found = {}
    for line in lines:
        found.setdefault(min(tuple(line), tuple(reversed(line))), line)
    return list(found.values())
