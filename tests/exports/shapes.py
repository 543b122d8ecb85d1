"""What the tests of other programs share: maps to draw, and the shapes of their files.

A shape is a kind ("line", "polygon", "ellipse") and numbers: the points of a line or polygon, or centre and
radii. The readers here know just what quelmont-draw writes; tests of its own check those files element by
element.
"""

import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

PROGRAM = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "quelmont-draw").resolve()
SIZES = (3, 8, 15)
WIDTHS = (1, 2, 3, 5, 9)


class ConsumerTest(unittest.TestCase):
    """Draws maps into a folder of its own."""

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def draw(self, options, name):
        subprocess.run([str(PROGRAM), *options, str(self.folder / name)], check=True)
        return self.folder / name


def record(code, latitude, longitude):
    """Of a map file in minutes: a code of 1000 and more begins a line."""
    return struct.pack("<3h", code, round(latitude * 60), round(longitude * 60))


ALL_SYMBOLS = range(2, 13)
RECTANGLES = (2, 5, 6)


def sheet(folder, symbols=ALL_SYMBOLS):
    """Writes the map files of a sheet of symbols and lines, and returns the options that draw it."""
    folder = pathlib.Path(folder)
    options = ["--projection", "robinson", "--grid-type", "5"]
    for symbol in symbols:
        for row, size in enumerate(SIZES):
            name = folder / f"symbol{symbol}-{size}.map"
            name.write_bytes(record(1000, 60 - 30 * row, -150 + 25 * (symbol - 2)))
            options += ["--map", str(name), "--symbol", str(symbol), "--symbol-size", str(size),
                        "--border-width", str(row + 1)]
    for row, width in enumerate(WIDTHS):
        name = folder / f"line{width}.map"
        places = [(-20 - 8 * row, -120), (-22 - 8 * row, 0), (-20 - 8 * row, 120)]
        name.write_bytes(b"".join(record(1000 if i == 0 else 0, *place) for i, place in enumerate(places)))
        options += ["--map", str(name), "--line-width", str(width)]
    return options


def cgm_elements(data):
    """(first byte, end, class, id, parameters) of each element."""
    position = 0
    while position < len(data):
        begin = position
        header, = struct.unpack_from(">H", data, position)
        position += 2
        length = header & 31
        if length == 31:
            length, = struct.unpack_from(">H", data, position)
            position += 2
        parameters = data[position:position + length]
        position += length + length % 2
        yield begin, position, header >> 12, header >> 5 & 127, parameters


def pairs(numbers):
    return list(zip(numbers[0::2], numbers[1::2]))


def cgm_shapes(data):
    shapes = []
    width = 0
    for begin, end, kind, element, parameters in cgm_elements(data):
        numbers = struct.unpack(f">{len(parameters) // 2}h", parameters) if kind in (4, 5) else ()
        if (kind, element) == (5, 3):
            width = numbers[0]
        elif (kind, element) == (4, 1):
            shapes.append(("line", pairs(numbers), width, (begin, end)))
        elif (kind, element) == (4, 7):
            shapes.append(("polygon", pairs(numbers), 0, (begin, end)))
        elif (kind, element) == (4, 12):
            shapes.append(("ellipse", [numbers[0:2], (numbers[2], numbers[2])], 0, (begin, end)))
    return shapes


def wmf_shapes(data):
    shapes = []
    width = 0
    position = 40
    while position < len(data):
        words, function = struct.unpack_from("<IH", data, position)
        numbers = struct.unpack_from(f"<{words - 3}h", data, position + 6)
        span = (position, position + 2 * words)
        if function == 0x02FA and numbers[1] > 0:
            width = numbers[1]
        elif function == 0x0325:
            shapes.append(("line", pairs(numbers[1:]), width, span))
        elif function == 0x0324:
            shapes.append(("polygon", pairs(numbers[1:]), width, span))
        elif function == 0x041B:
            bottom, right, top, left = numbers
            shapes.append(("polygon", [(left, top), (right, top), (right, bottom), (left, bottom)], width, span))
        elif function == 0x0418:
            bottom, right, top, left = numbers
            shapes.append(("ellipse", [((left + right) / 2, (top + bottom) / 2),
                                       ((right - left) / 2, (bottom - top) / 2)], width, span))
        position += 2 * words
    return shapes


def without(data, shape):
    """The bytes of a file without one of its shapes."""
    begin, end = shape[3]
    data = data[:begin] + data[end:]
    if data[:4] == b"\xd7\xcd\xc6\x9a":
        words, = struct.unpack_from("<I", data, 28)
        data = data[:28] + struct.pack("<I", words - (end - begin) // 2) + data[32:]
    return data


def with_larger(data, shape):
    """The bytes of a file with a symbol's last coordinate 200 units further."""
    end = shape[3][1]
    order = "<h" if data[:4] == b"\xd7\xcd\xc6\x9a" else ">h"
    place = end - 2
    if order == "<h" and shape[0] == "ellipse":
        place = shape[3][0] + 6  # its bottom
    value, = struct.unpack_from(order, data, place)
    return data[:place] + struct.pack(order, value + 200) + data[place + 2:]


def fit(own, other):
    """Factor and offset that lead from one list of numbers to the other, by least squares."""
    count = len(own)
    mean_own = sum(own) / count
    mean_other = sum(other) / count
    square = sum((a - mean_own) ** 2 for a in own)
    factor = sum((a - mean_own) * (b - mean_other) for a, b in zip(own, other)) / square
    return factor, mean_other - factor * mean_own


def difference(own, others, tolerance, width_tolerance):
    """Why two lists of shapes are not the same, up to a scale and an offset of each axis; None if they are.

    Rings may begin at another corner and run the other way round, and a line that ends where it begins may be
    a ring. The widths of lines must have one ratio, up to a tolerance in the units of the reader.
    """
    if len(own) != len(others):
        return f"{len(own)} shapes, {len(others)} read"
    others = [("line", theirs[1] + theirs[1][:1], theirs[2])
              if mine[0] == "line" and theirs[0] == "polygon" and mine[1][0] == mine[1][-1] else theirs
              for mine, theirs in zip(own, others)]
    for number, (mine, theirs) in enumerate(zip(own, others)):
        if mine[0] != theirs[0] or len(mine[1]) != len(theirs[1]):
            return f"shape {number} is {mine[0]} of {len(mine[1])}, {theirs[0]} of {len(theirs[1])} read"
    axes = []
    for axis in (0, 1):
        mine = [point[axis] for shape in own if shape[0] == "line" for point in shape[1]]
        theirs = [point[axis] for shape in others if shape[0] == "line" for point in shape[1]]
        axes.append(fit(mine, theirs))
    for number, (mine, theirs) in enumerate(zip(own, others)):
        places = [[(value - axes[axis][1]) / axes[axis][0] for axis, value in enumerate(point)]
                  for point in theirs[1]]
        wanted = [list(point) for point in mine[1]]
        if mine[0] == "ellipse":
            places[1] = [abs(value / axes[axis][0]) for axis, value in enumerate(theirs[1][1])]
        elif mine[0] == "polygon":
            places.sort(key=lambda point: [round(value / 20) for value in point])
            wanted.sort(key=lambda point: [round(value / 20) for value in point])
        distance = max(abs(a - b) for p, q in zip(places, wanted) for a, b in zip(p, q))
        if distance > tolerance:
            return f"shape {number} ({mine[0]}) is {distance:.1f} units away"
    widths = sorted((mine[2], theirs[2]) for mine, theirs in zip(own, others) if mine[0] == "line" and theirs[2])
    for mine, theirs in widths:
        wanted = mine * widths[-1][1] / widths[-1][0]
        if abs(theirs - wanted) > width_tolerance:
            return f"a line of {mine} units is {theirs} wide, not {wanted:.3f}"
    return None


def places_difference(own, others, tolerance):
    """Why two lists of lines do not go through the same places; None if they do.

    For a reader that drops and joins points that lie on each other: each vertex has one near it in the same
    line of the other list. Scale and offset of each axis come from the extents.
    """
    if len(own) != len(others):
        return f"{len(own)} lines, {len(others)} read"
    scaled = []
    for axis in (0, 1):
        mine = [point[axis] for line in own for point in line[1]]
        theirs = [point[axis] for line in others for point in line[1]]
        low, high = (min(theirs), max(theirs)) if axis == 0 else (max(theirs), min(theirs))
        least = min(mine)
        factor = (max(mine) - least) / (high - low)
        scaled.append([[least + (point[axis] - low) * factor for point in line[1]] for line in others])
    for number, line in enumerate(own):
        read = list(zip(scaled[0][number], scaled[1][number]))
        for some, rest in ((line[1], read), (read, line[1])):
            cells = {(round(x / tolerance) + i, round(y / tolerance) + j)
                     for x, y in rest for i in (-1, 0, 1) for j in (-1, 0, 1)}
            if any((round(x / tolerance), round(y / tolerance)) not in cells for x, y in some):
                return f"line {number} has a vertex of its own"
    return None
