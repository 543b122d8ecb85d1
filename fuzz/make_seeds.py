#!/usr/bin/python3
"""Writes the seeds of the fuzzers into corpus/: small files of each format, with the four bytes before
them that choose the map (see map_fuzz.h). Those of minute_grid were written by hand.

    fuzz/make_seeds.py
"""

import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"
# Two lines in seconds of arc: one in the middle of most maps, one across the 180th meridian.
LINES = [[(180000 + 50 * i, -36000 + 90 * i) for i in range(12)],
         [(3600 - 60 * i, 647700 + 100 * i) for i in range(12)]]


def coordinate(seconds, long):
    sign = -1 if seconds < 0 else 1
    degrees, rest = divmod(abs(seconds), 3600)
    parts = [degrees // 2, degrees % 2] if long else [degrees]
    return struct.pack(f"{len(parts) + 2}b", *(sign * part for part in (*parts, rest // 60, rest % 60)))


def segment(rank, line):
    lats, lons = zip(*line)
    data = bytes([rank, len(line) // 100, len(line) % 100])
    data += coordinate(min(lons), True) + coordinate(min(lats), False)
    data += coordinate(max(lons), True) + coordinate(max(lats), False)
    data += coordinate(lons[0], True) + coordinate(lats[0], False)
    for (lat0, lon0), (lat1, lon1) in zip(line, line[1:]):
        data += struct.pack("2b", lon1 - lon0, lat1 - lat0)
    return data


def record(lat, lon):
    def angle(seconds, width, letters):
        value = abs(seconds)
        return (f"{value // 3600:0{width}}{value // 60 % 60:02}{value % 60:02}"
                f"{letters[seconds < 0]}")
    return (angle(lat, 2, "NS") + angle(lon, 3, "EW")).ljust(18).encode() + b"\r\n"


def graph_header(code, count):
    return f"       {code % 100:02}{count:06}   {code // 100:02}".encode()


def world(lines):
    data = b""
    for line in lines:
        data += bytes.fromhex("0000c642")
        for lat, lon in line:
            data += struct.pack("<2f", lat / 3600, lon / 3600) + b"\n"
    return data


def put(fuzzer, name, header, data):
    folder = CORPUS / fuzzer
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(bytes(header) + data)


def records(header):
    return b"".join(header(line) + b"".join(record(*place) for place in line) for line in LINES)


def text(lines, pattern, break_text=""):
    return "".join(break_text + "".join(pattern(i, *place) for i, place in enumerate(line))
                   for line in lines).encode("cp1252")


def main():
    two = b"".join(segment(rank, line) for rank, line in zip((1, 22), LINES))
    # The third byte goes through .pkv, the three parts as .pkd, and .grv; the first is the projection,
    # of which number 16, counted from 0, is UTM.
    for place, name in enumerate(("pkv", "coast", "river", "political", "grv")):
        put("packed", name, (place, 0, place * 52, 0), two)
    put("packed", "utm", (16, 0, 0, 0), two)
    put("packed", "hidden", (0, 0, 1, 0), two)
    put("packed", "escape", (0, 1, 1, 1), two * 3)
    put("packed", "rank_without_row", (0, 0, 0, 0), segment(73, LINES[0]))
    put("packed", "cut_off", (2, 0, 0, 0), two[:-7])
    put("packed", "count_of_none", (0, 0, 0, 0), b"\x01\x00\x00" + two[3:24] + two)

    put("fixed_record", "dat", (0, 0, 0, 0), records(lambda line: b" " * 18 + b"\r\n"))
    put("fixed_record", "no_header", (8, 1, 0, 0), b"".join(record(*place) for place in LINES[0]))
    for name, third in (("grf", 128), ("grf_hidden", 129)):
        put("fixed_record", name, (0, 0, third, 0), records(lambda line: graph_header(3001, len(line))))
    put("fixed_record", "unknown_code", (0, 0, 129, 0), records(lambda line: graph_header(4999, len(line))))
    put("fixed_record", "negative_count", (0, 0, 129, 0), b"       01    -1   30" + record(0, 0))
    put("fixed_record", "utm", (16, 0, 0, 0), records(lambda line: b" " * 20))

    degrees = [[(lat / 3600, lon / 3600) for lat, lon in line] for line in LINES]
    items = text(degrees, lambda i, lat, lon: f"{lat:.4f} {lon:.4f}\r\n", "land\r\n")
    put("world_text", "lines", (0, 0, 0, 0), items)
    put("world_text", "commas", (3, 1, 1, 0), items.replace(b"\r\n", b","))
    put("world_text", "no_blank", (0, 0, 0, 0), b"33\n-33\n1E9 1\n")
    put("world_text", "utm", (16, 0, 0, 0), items)

    put("world_binary", "lines", (0, 0, 0, 0), world(LINES))
    put("world_binary", "region", (1, 1, 0, 0), world(LINES) * 3)
    put("world_binary", "tail", (0, 0, 0, 0), world(LINES).replace(b"\n", b"a\x01b\n"))
    put("world_binary", "no_number", (0, 0, 0, 0), struct.pack("<2f", float("nan"), 1) + b"\n")
    put("world_binary", "cut_off", (10, 0, 0, 0), world(LINES)[:-1])

    put("ascii_map", "commas", (0, 0, 0, 0),
        text(degrees, lambda i, lat, lon: f"{int(i == 0)},{lat:.4f},{lon:.4f}, \"K\xf6ln {i}\"\r\n"))
    put("ascii_map", "blanks", (9, 0, 0, 0),
        text(degrees, lambda i, lat, lon: f" {int(i == 0)}  {lat:.4f}\t{lon:.4f}\n"))
    put("ascii_map", "utm_metres", (16, 0, 128, 0),
        text(LINES, lambda i, lat, lon: f"{int(i == 0)} {500000 + lon // 9} {5900000 + lat} \"x\"\n"))
    put("ascii_map", "unclosed", (0, 0, 0, 0), b"1,1,1,\"Oslo\n")
    put("ascii_map", "blank_lines", (0, 0, 0, 0), b"\n\r\n \n1\n2\n3\n\n\n")


if __name__ == "__main__":
    main()
