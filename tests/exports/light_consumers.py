#!/usr/bin/python3
"""Small programs read what quelmont-draw writes: ezdxf and GDAL DXF, ImageMagick BMP.

    light_consumers.py PROGRAM
"""

import math
import re
import subprocess
import sys
import unittest

from ezdxf import recover

import shapes


def groups(data):
    lines = data.decode("ascii").split("\r\n")[:-1]
    return list(zip(map(int, lines[0::2]), lines[1::2]))


def own_entities(data):
    """The polylines, solids and circles of a file by its groups: name, colour, width, points, radius."""
    found = []
    pairs = groups(data)
    begin = pairs.index((2, "ENTITIES"))
    for code, value in pairs[begin + 1:]:
        if (code, value) == (0, "ENDSEC"):
            break
        if code == 0 and value in ("POLYLINE", "SOLID", "CIRCLE"):
            found.append({"name": value, "colour": None, "width": 0.0, "points": [], "radius": 0.0})
        elif code == 62:
            found[-1]["colour"] = int(value)
        elif code == 40:
            found[-1]["radius" if found[-1]["name"] == "CIRCLE" else "width"] = float(value)
        elif 10 <= code < 20:
            found[-1]["points"].append((float(value),))
        elif 20 <= code < 30:
            found[-1]["points"][-1] += (float(value),)
    return found


def read_by_ezdxf(file):
    """The same as ezdxf reads it, and the count of what its auditor finds wrong."""
    document, auditor = recover.readfile(file)
    found = []
    for entity in document.modelspace():
        one = {"name": entity.dxftype(), "colour": entity.dxf.color, "width": 0.0, "points": [], "radius": 0.0}
        if one["name"] == "POLYLINE":
            one["width"] = entity.dxf.default_start_width
            one["points"] = [(vertex.dxf.location.x, vertex.dxf.location.y) for vertex in entity.vertices]
        elif one["name"] == "SOLID":
            one["points"] = [(point.x, point.y) for point in (entity.dxf.vtx0, entity.dxf.vtx1, entity.dxf.vtx2,
                                                              entity.dxf.vtx3)]
        elif one["name"] == "CIRCLE":
            one["points"] = [(entity.dxf.center.x, entity.dxf.center.y)]
            one["radius"] = entity.dxf.radius
        found.append(one)
    return found, len(auditor.errors) + len(auditor.fixes)


def read_by_gdal(file):
    """Points of each line as GDAL reads it, a feature each."""
    told = subprocess.run(["ogrinfo", "-al", str(file)], check=True, capture_output=True, text=True).stdout
    found = []
    for geometry in re.findall(r"^  (\w+ .*\(.*\))$", told, re.MULTILINE):
        if geometry.startswith("LINESTRING ("):
            pairs = geometry[len("LINESTRING ("):-1].split(",")
            found.append([tuple(map(float, pair.split())) for pair in pairs])
    assert len(found) == int(re.search(r"Feature Count: (\d+)", told).group(1))
    return found


def without_last_polyline(data):
    begin = data.rindex(b"  0\r\nPOLYLINE")
    return data[:begin] + data[data.index(b"  0\r\nENDSEC", begin):]


def with_digit_before(data, code, entity):
    """A one before the number of a group of the last of such entities."""
    place = data.index(code + b"\r\n", data.rindex(b"\r\n" + entity + b"\r\n")) + len(code) + 2
    return data[:place] + b"1" + data[place:]


class Consumers(shapes.ConsumerTest):
    def assert_only_the_file_itself_is_read_so(self, file, read, own, changed):
        """read tells what own says, and something else of a file without a line and of a changed one."""
        data = file.read_bytes()
        self.assertEqual(read(file), own)
        file.write_bytes(without_last_polyline(data))
        self.assertNotEqual(read(file), own, "a line is missing")
        file.write_bytes(changed)
        self.assertNotEqual(read(file), own, "something is changed")

    def test_ezdxf_reads_every_entity_of_the_sheet(self):
        for more in ([], ["--no-line-scaling"]):
            file = self.draw(shapes.sheet(self.folder) + more, "sheet.dxf")
            self.assertEqual(read_by_ezdxf(file)[1], 0)
            data = file.read_bytes()
            for entity in (b"SOLID", b"CIRCLE") if more else (b"SOLID",):
                file.write_bytes(data)
                self.assert_only_the_file_itself_is_read_so(file, lambda name: read_by_ezdxf(name)[0],
                                                            own_entities(data),
                                                            with_digit_before(data, b" 10", entity))

    def test_ezdxf_reads_the_default_map(self):
        file = self.draw(["--projection", "robinson"], "world.dxf")
        self.assertEqual(read_by_ezdxf(file)[1], 0)
        data = file.read_bytes()
        own = own_entities(data)
        self.assertGreater(len(own), 6000)
        self.assert_only_the_file_itself_is_read_so(file, lambda name: read_by_ezdxf(name)[0], own,
                                                    with_digit_before(data, b" 20", b"VERTEX"))

    def test_ezdxf_reads_filled_areas_of_their_true_size(self):
        """On an equal-area map the solids of the sea, which lies beneath the land too, are the whole world, and
        those of the land 29.2 percent of it (148.94 of 510.07 million square kilometres, CIA World Factbook)."""
        file = self.draw(["--projection", "mollweide", "--fill-land", "FFFFCC", "--fill-lakes", "99CCFF",
                          "--fill-sea", "CCE6FF"], "filled.dxf")
        document, auditor = recover.readfile(file)
        self.assertEqual(len(auditor.errors) + len(auditor.fixes), 0)
        # 99CCFF has the number 151 in the table of colours; CCE6FF has white's, and takes the tint of its hue, the same.
        self.assertEqual({layer.dxf.name: layer.dxf.color for layer in document.layers if layer.dxf.name != "Defpoints"},
                         {"0": 8, "SEA": 151, "LAND": 51, "LAKES": 151})
        places = []
        areas = dict.fromkeys(("SEA", "LAND", "LAKES"), 0.0)
        for solid in document.modelspace().query("SOLID"):
            (x0, y0, _), (x1, y1, _), (x2, y2, _), (x3, y3, _) = (solid.dxf.vtx0, solid.dxf.vtx1, solid.dxf.vtx2,
                                                                solid.dxf.vtx3)
            self.assertTrue(y0 == y1 < y2 == y3 and x0 <= x1 and x2 <= x3, "a trapezoid that stands upright")
            places += [(x0, y0), (x1, y0), (x2, y2), (x3, y2)]
            areas[solid.dxf.layer] += (y2 - y0) * (x1 - x0 + x3 - x2) / 2
        (left, bottom), (right, top) = (tuple(map(end, zip(*places))) for end in (min, max))
        self.assertAlmostEqual(areas["SEA"] / ((right - left) * (top - bottom) * math.pi / 4), 1, delta=0.001,
                               msg="an ellipse")
        self.assertAlmostEqual(areas["LAND"] / areas["SEA"], 0.292, delta=0.004)
        self.assertGreater(areas["LAKES"] / areas["SEA"], 0.001)
        self.assertEqual({entity.dxf.layer for entity in document.modelspace().query("POLYLINE")}, {"0"})

    def test_ezdxf_reads_every_text(self):
        texts = ["Plain", "Quotes \"'", "%%u \\P {\\b} ^I ;", "K\u00f8ge \u0416", "a\r\nb\tc", "a\u200f\u202eb", "x" * 10000]
        options = ["--no-map", "--grid-type", "5", "--window", "641x463"]
        for place, text in enumerate(texts):
            options += ["--text", text, "--at", f"{20 * place},{400 - 30 * place}", "--rotate", str(45 * place)]
        file = self.draw(options, "texts.dxf")
        document, auditor = recover.readfile(file)
        self.assertEqual(len(auditor.errors) + len(auditor.fixes), 0)
        found = [entity for entity in document.modelspace() if entity.dxftype() == "TEXT"]
        self.assertEqual(len(found), len(texts))
        # The drawing area is 640 pixels wide and 462 high without its last pixel, 32000 units by 23100.
        for place, entity in enumerate(found):
            self.assertEqual((entity.dxf.insert.x, entity.dxf.insert.y),
                             (1000 * place, 23100 - 50 * (400 - 30 * place)))
            self.assertEqual(entity.dxf.rotation, 45 * place)
            self.assertGreater(entity.dxf.height, 0)
        self.assertEqual(found[0].dxf.text, "Plain")
        self.assertEqual(found[1].dxf.text, texts[1])
        self.assertEqual(found[6].dxf.text, texts[6])

    def test_ezdxf_reads_frame_scale_bar_and_labels_of_the_grid_in_their_places(self):
        """A world of 360 degrees: labels of meridians stand as far apart as these, labels of parallels too, and a
        bar that is true at 30 degrees is a share of that parallel (40 030.17 kilometres are the equator)."""
        file = self.draw(["--no-map", "--grid-type", "5", "--projection", "equirectangular", "--frame",
                          "--scale-bar", "km@30N", "--grid-labels", "frame"], "framed.dxf")
        document, auditor = recover.readfile(file)
        self.assertEqual(len(auditor.errors) + len(auditor.fixes), 0)
        space = document.modelspace()
        lines = [[(vertex.dxf.location.x, vertex.dxf.location.y) for vertex in line.vertices]
                 for line in space.query("POLYLINE")]
        frame = lines[0]
        (left, bottom), (right, top) = min(frame), max(frame)
        self.assertEqual(sorted(set(frame)), [(left, bottom), (left, top), (right, bottom), (right, top)])
        places = {}
        for text in space.query("TEXT"):
            places.setdefault(text.dxf.text, []).append((text.dxf.insert.x, text.dxf.insert.y))
        degree = (right - left) / 360
        row = (top - bottom) / 180
        # Where it begins depends on how wide it is; those of as many letters begin alike.
        self.assertAlmostEqual(min(places["90\u00b0E"])[0] - min(places["45\u00b0E"])[0], 45 * degree, delta=1.5)
        self.assertAlmostEqual(min(places["45\u00b0W"])[0] - min(places["90\u00b0W"])[0], 45 * degree, delta=1.5)
        self.assertAlmostEqual(min(places["60\u00b0N"])[1] - min(places["30\u00b0N"])[1], 30 * row, delta=1.5)
        self.assertAlmostEqual(min(places["30\u00b0N"])[1] - min(places["30\u00b0S"])[1], 60 * row, delta=1.5)
        self.assertTrue(all(y < bottom or y > top for x, y in places["45\u00b0E"]), "outside of the frame")
        self.assertTrue(all(x < left or x > right for x, y in places["30\u00b0N"]))
        # Ticks at meridians leave the frame where these do.
        ticks = {line[0][0] for line in lines[1:] if len(line) == 2 and line[0][1] == bottom}
        self.assertEqual(len(ticks), 7)
        for meridian, tick in zip(range(-135, 180, 45), sorted(ticks)):
            self.assertAlmostEqual(tick, left + (meridian + 180) * degree, delta=1.5)
        bars = [line for line in lines[1:] if len(line) == 5]
        self.assertEqual(len(bars), 1)
        km = next(int(text.split()[0]) for text in places if text.endswith(" km"))
        length = max(x for x, y in bars[0]) - min(x for x, y in bars[0])
        self.assertAlmostEqual(length, km / (40030.17 * math.cos(math.radians(30))) * (right - left), delta=2)
        self.assertIn("Scale at 30\u00b0N", places)

    def test_ezdxf_reads_circles(self):
        file = self.draw(["--projection", "azimuthal equidistant", "--grid-type", "5", "--no-map",
                          "--great-circle", "37:47N,122:26W,29:20N,47:59E", "--great-circle-color", "FF0000",
                          "--great-circle-width", "5", "--small-circle", "52:31N,13:24E,60", "--circles", "4",
                          "--small-circle-color", "0000FF"], "circles.dxf")
        read, wrong = read_by_ezdxf(file)
        self.assertEqual(wrong, 0)
        self.assertEqual(read, own_entities(file.read_bytes()))
        self.assertEqual([len(one["points"]) for one in read], [361, 361, 361, 361, 176])
        self.assertEqual([one["colour"] for one in read], [5, 5, 5, 5, 1])

    def test_gdal_reads_every_line_of_the_default_map(self):
        file = self.draw(["--projection", "robinson"], "world.dxf")
        data = file.read_bytes()
        self.assert_only_the_file_itself_is_read_so(file, read_by_gdal,
                                                    [entity["points"] for entity in own_entities(data)],
                                                    with_digit_before(data, b" 20", b"VERTEX"))

    def test_imagemagick_sees_the_same_pixels_in_bmp_and_png(self):
        def pixels(file):
            told = subprocess.run(["identify", "-format", "%m %w %h %#", str(file)], check=True,
                                  capture_output=True, text=True).stdout.split()
            self.assertIn(told[0], ("BMP", "BMP3", "PNG"))
            return told[1:]

        # An odd width, so that rows have padding.
        bmp, png = (self.draw(["--projection", "robinson", "--window", "641x401"], name)
                    for name in ("map.bmp", "map.png"))
        self.assertEqual(pixels(bmp), pixels(png))
        self.assertEqual(pixels(bmp)[:2], ["641", "401"])
        data = bytearray(bmp.read_bytes())
        data[-100] ^= 0xFF
        bmp.write_bytes(data)
        self.assertNotEqual(pixels(bmp), pixels(png), "a pixel is changed")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
