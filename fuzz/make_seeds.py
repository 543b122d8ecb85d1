#!/usr/bin/python3
"""Writes the seeds of the fuzzers into corpus/: small files of each format that quelmont-convert makes,
and such files damaged, with the bytes before them that choose the map and the habits of the file (see
map_fuzz.h and convert_fuzz.cpp). Most of minute_grid were written by hand and stay.

    fuzz/make_seeds.py [QUELMONT-CONVERT]
"""

import json
import pathlib
import struct
import subprocess
import sys
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parent.parent
CORPUS = PROJECT / "fuzz" / "corpus"
CONVERT = sys.argv[1] if len(sys.argv) > 1 else PROJECT / "build" / "release" / "bin" / "quelmont-convert"

# Two lines in seconds of arc, latitude and longitude: one in the middle of most maps, one across the
# 180th meridian, where it is cut.
LINES = [[(180000 + 50 * i, -36000 + 90 * i) for i in range(12)],
         [(3600 - 60 * i, 647700 + 100 * i) for i in range(12)]]
LAKE_GENEVA = "--bounds=5.9,46,7.1,46.7"


def run(source, name, options):
    with tempfile.TemporaryDirectory() as folder:
        target = pathlib.Path(folder) / name
        subprocess.run([CONVERT, source, target, *options], check=True, stderr=subprocess.DEVNULL)
        return target.read_bytes()


def feature(kind, coordinates, row, label):
    return {"type": "Feature", "properties": {"row": row, "label": label},
            "geometry": {"type": kind, "coordinates": coordinates}}


def degrees(line):
    return [(lon / 3600, lat / 3600) for lat, lon in line]


def converted(name, *options, rows=(1, 1), points=False):
    """The bytes of a map file with the two lines, or with all their points one by one."""
    if points:
        features = [feature("Point", place, 1, f"K\u00f6ln {i}")
                    for line in LINES for i, place in enumerate(degrees(line))]
    else:
        features = [feature("LineString", degrees(line), row, None) for line, row in zip(LINES, rows)]
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "lines.geojson"
        source.write_text(json.dumps({"type": "FeatureCollection", "features": features}))
        return run(source, name, options)


def excerpt(name, *options):
    """The bytes of a map file with the surroundings of Lake Geneva, from the default map."""
    return run(PROJECT / "data" / "Qmnt4.map", name, (LAKE_GENEVA, *options))


def put(fuzzer, name, header, data, habits=0):
    folder = CORPUS / fuzzer
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(bytes((*header, habits)) + data)


def packed():
    # The third byte goes through .pkv, the three parts as .pkd, and .grv; the first is the projection,
    # of which number 16, counted from 0, is UTM.
    parts = (("pkv", "fuzz.pkv", (1, 22)), ("coast", "fuc.pkd", (9, 15)), ("river", "fur.pkd", (21, 31)),
             ("political", "fup.pkd", (32, 36)), ("grv", "fuzz.grv", (1, 72)))
    for place, (name, file, rows) in enumerate(parts):
        put("packed", name, (place, 0, place * 52, 0), converted(file, "--feature", "@row", rows=rows))
    lines = converted("fuzz.pkv", "--feature", "@row", rows=(1, 22))
    put("packed", "utm", (16, 0, 0, 0), lines)
    put("packed", "hidden", (0, 0, 1, 0), lines)
    put("packed", "escape", (0, 1, 1, 1), lines * 3)
    put("packed", "cut_off", (2, 0, 0, 0), lines[:-7])
    put("packed", "rank_without_row", (0, 0, 0, 0), b"\x49" + lines[1:])
    put("packed", "count_of_none", (0, 0, 0, 0), b"\x01\x00\x00" + lines[3:24] + lines)
    put("packed", "lake_geneva", (1, 0, 0, 0), excerpt("fuzz.pkv", "--feature", "@feature"))


def fixed_record():
    lines = converted("fuzz.dat")
    put("fixed_record", "dat", (0, 0, 0, 0), lines)
    put("fixed_record", "no_header", (8, 1, 0, 0), lines[20:])
    put("fixed_record", "utm", (16, 0, 0, 0), lines)
    graph = converted("fuzz.grf", "--feature", "@row", rows=(1, 72))
    put("fixed_record", "grf", (0, 0, 128, 0), graph)
    put("fixed_record", "grf_hidden", (0, 0, 129, 0), graph)
    # Code 3001 becomes 4901, which means nothing.
    put("fixed_record", "unknown_code", (0, 0, 129, 0), graph[:18] + b"49" + graph[20:])
    put("fixed_record", "negative_count", (0, 0, 129, 0), graph[:9] + b"    -1" + graph[15:40])
    put("fixed_record", "lake_geneva", (3, 0, 0, 0), excerpt("fuzz.dat", "--simplify", "60"))


def world():
    items = converted("fuzz.mp1")
    put("world_text", "lines", (0, 0, 0, 0), b"land\r\n" + items)
    put("world_text", "commas", (3, 1, 1, 0), items.replace(b"\r\n", b","))
    put("world_text", "no_blank", (0, 0, 0, 0), b"33\n-33\n1E9 1\n")
    put("world_text", "utm", (16, 0, 0, 0), items)
    put("world_text", "lake_geneva", (2, 0, 0, 0), excerpt("fuzz.mp1", "--simplify", "60"))
    floats = converted("fuzz.mps")
    put("world_binary", "lines", (0, 0, 0, 0), floats)
    put("world_binary", "region", (1, 1, 0, 0), floats * 3)
    put("world_binary", "tail", (0, 0, 0, 0), floats.replace(b"\n", b"a\x01b\n"))
    put("world_binary", "no_number", (0, 0, 0, 0), struct.pack("<2f", float("nan"), 1) + b"\n")
    put("world_binary", "cut_off", (10, 0, 0, 0), floats[:-1])
    put("world_binary", "lake_geneva", (4, 0, 0, 0), excerpt("fuzz.mps"))


def ascii_map():
    labelled = converted("fuzz.prn", "--label", "label", points=True)
    put("ascii_map", "commas", (0, 0, 0, 0), labelled)
    put("ascii_map", "windows_1252", (5, 0, 0, 0), labelled.decode().encode("cp1252"))
    put("ascii_map", "blanks", (9, 0, 0, 0), converted("fuzz.prn").replace(b",", b"  ").replace(b"\r\n", b"\n"))
    put("ascii_map", "utm_metres", (16, 0, 128, 0),
        converted("fuzz.utm", "--utm", "9W", "--label", "label", points=True))
    put("ascii_map", "unclosed", (0, 0, 0, 0), b"1,1,1,\"Oslo\n")
    put("ascii_map", "blank_lines", (0, 0, 0, 0), b"\n\r\n \n1\n2\n3\n\n\n")
    put("ascii_map", "lake_geneva", (6, 0, 0, 0), excerpt("fuzz.prn", "--simplify", "60"))


def convert():
    # The order of the names in convert_fuzz.cpp; each goes into the next format.
    names = ("fuzz.map", "fuzz.pnt", "fuzz.pkv", "fuc.pkd", "fuzz.grv", "fuzz.grf", "fuzz.dat", "fuzz.mps",
             "fuzz.mp1", "fuzz.prn", "fuzz.utm")
    for place, name in enumerate(names):
        row = "9" if name == "fuc.pkd" else "1"
        put("convert", name[-3:], (place, (place + 1) % len(names), 0),
            converted(name, "--feature", row, "--utm", "177,WGS84 1984", "--label", "label"))
    put("convert", "simplified", (0, 2, 60), excerpt("fuzz.map"))


def records():
    # The order of the formats in map_formats.cpp; the files are those of the other fuzzers, without their
    # header of five bytes. Each comes whole and in pieces.
    names = (("prn", "ascii_map", "commas"), ("utm", "ascii_map", "utm_metres"),
             ("all", "minute_grid", "lake_geneva"), ("grv", "packed", "grv"), ("grf", "fixed_record", "grf"),
             ("dat", "fixed_record", "dat"), ("pkv", "packed", "pkv"), ("pkd", "packed", "river"),
             ("mp1", "world_text", "lines"), ("mps", "world_binary", "tail"))
    order = ("prn", "utm", "all", "pnt", "cci", "grv", "grf", "map", "dat", "pkv", "pkd", "mp1", "mps")
    for ending, fuzzer, seed in names:
        data = (CORPUS / fuzzer / seed).read_bytes()[5:]
        put("records", ending, (order.index(ending),), data)
        put("records", ending + "_in_pieces", (order.index(ending),), data, 2)


def minute_grid(*lines):
    """Lines of degrees, latitude and longitude, each with its row, as a minute-grid file."""
    return b"".join(struct.pack("<hhh", row * 1000 if i == 0 else 0, round(lat * 60), round(lon * 60))
                    for row, line in lines for i, (lat, lon) in enumerate(line))


def areas():
    """Closed lines, one of each kind that areas are cut from (see areas_fuzz.cpp): about a place, over the 180th
    meridian, about a pole, with a lake, through each other, in pieces that meet, round the whole axis."""
    box = [(40, 0), (40, 20), (60, 20), (60, 0), (40, 0)]
    lake = [(45, 5), (45, 10), (50, 10), (50, 5), (45, 5)]
    over = [(-20, 170), (-20, -170), (20, -170), (20, 170), (-20, 170)]
    pole = [(70, lon) for lon in range(-180, 180, 30)] + [(70, -180)]
    south = [(-65 + lon % 20, lon) for lon in range(-180, 180, 10)] + [(-65, -180)]
    knot = [(0, 0), (30, 30), (0, 30), (30, 0), (0, 0)]
    far = [(80 * (-1) ** i, 7 * i - 90) for i in range(26)] + [(80, -90)]
    for number, (name, lines) in enumerate((
            ("box", [(1, box)]), ("lake", [(1, box), (3, lake)]), ("over", [(1, over)]), ("pole", [(1, pole)]),
            ("south", [(2, south)]), ("knot", [(1, knot)]), ("far", [(1, far)]),
            ("pieces", [(1, box[:3]), (1, box[2:])]), ("all", [(1, box), (3, lake), (2, over), (1, south)]))):
        put("areas", name, (3 * number, number % 5, 0, 0), minute_grid(*lines))
    put("areas", "lake_geneva", (0, 4, 0, 0), excerpt("fuzz.map"))
    put("areas", "lake_geneva_packed", (5, 4, 1, 0), (CORPUS / "packed" / "lake_geneva").read_bytes()[5:])


def designs():
    """Map designs of some projections, and two of them as version 2 and as an older one would have them."""
    draw = pathlib.Path(CONVERT).with_name("quelmont-draw")
    folder = CORPUS / "design"
    folder.mkdir(parents=True, exist_ok=True)
    texts = ("--text", "Oslo, the \"old\" town", "--at", "10%,5%", "--rotate", "45")
    for name, options in (("mercator", ("--projection", "mercator")), ("utm", ("--projection", "utm")),
                          ("albers", ("--projection", "albers")), ("lobes", ("--projection", "42")),
                          ("perspective", ("--projection", "vertical")),
                          ("stereographic", ("--projection", "stereographic")),
                          ("texts", ("--projection", "hammer", "--grid-type", "1", *texts))):
        file = folder / name
        design = file.with_suffix(".cnf")
        subprocess.run([draw, "--no-map", *options, "--save-design", design.name], cwd=folder, check=True)
        design.rename(file)
    with_map = folder / "map.cnf"
    subprocess.run([draw, "--map", "m.map", "--save-design", with_map.name], cwd=folder, check=True)
    with_map.write_bytes(with_map.read_bytes().replace(str(folder / "m.map").encode(), b"m.map"))
    with_map.rename(folder / "map")
    lines = (folder / "albers").read_bytes().split(b"\r\n")
    older = [b"Quelmont configuration file version 2.50", *lines[1:5], lines[8], lines[11], lines[7], lines[12],
             b" 50331647  33554432 ", *lines[14:16], b" 1 1 1", *lines[17:20], *lines[20:21],
             lines[21].rsplit(b",", 1)[0], *lines[22:78], b" 1 2 3 4 0 50266112 45", *lines[83:]]
    (folder / "version_2").write_bytes(b"\r\n".join(older))
    (folder / "oldest").write_bytes(b"\r\n".join([b"ALBERS EQUAL-AREA", *older[2:]]))


def strange_files():
    """One seed of each fuzzer as a file that tells no length, comes in pieces, grows, or shrinks; the
    numbers are those of HabitsOf."""
    for fuzzer, name, size in (("minute_grid", "lake_geneva", 4), ("packed", "lake_geneva", 4),
                               ("fixed_record", "lake_geneva", 4), ("world_text", "lake_geneva", 4),
                               ("world_binary", "lake_geneva", 4), ("ascii_map", "lake_geneva", 4),
                               ("convert", "simplified", 3)):
        seed = (CORPUS / fuzzer / name).read_bytes()
        for habit, number in (("told_nothing", 4), ("in_pieces", 2), ("grows", 52), ("shrinks", 96)):
            put(fuzzer, habit, seed[:size], seed[size + 1:], number)


def main():
    packed()
    fixed_record()
    world()
    ascii_map()
    convert()
    put("minute_grid", "lake_geneva", (1, 0, 0, 0), excerpt("fuzz.map"))
    areas()
    records()
    designs()
    strange_files()


if __name__ == "__main__":
    main()
