#!/usr/bin/python3
"""Small programs read what quelmont-draw writes: ezdxf and GDAL DXF, ImageMagick BMP.

    light_consumers.py PROGRAM
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from ezdxf import recover

import shapes

PROGRAM = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "quelmont-draw").resolve()


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


class Consumers(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def draw(self, options, name):
        shapes.draw(PROGRAM, options, self.folder / name)
        return self.folder / name

    def test_ezdxf_reads_every_entity_of_the_sheet(self):
        for more in ([], ["--no-line-scaling"]):
            file = self.draw(shapes.sheet(self.folder) + more, "sheet.dxf")
            entities, wrong = read_by_ezdxf(file)
            self.assertEqual(wrong, 0)
            self.assertEqual(entities, own_entities(file.read_bytes()))

    def test_comparison_sees_a_missing_line_and_a_larger_symbol(self):
        file = self.draw(shapes.sheet(self.folder), "sheet.dxf")
        text = file.read_bytes().decode("ascii")
        own = own_entities(text.encode("ascii"))
        begin = text.rindex("  0\r\nPOLYLINE")
        file.write_bytes((text[:begin] + text[text.index("  0\r\nENDSEC", begin):]).encode("ascii"))
        self.assertNotEqual(read_by_ezdxf(file)[0], own)
        solid = text.index("SOLID")
        place = text.index(" 10\r\n", solid) + 5
        file.write_bytes((text[:place] + "1" + text[place:]).encode("ascii"))
        self.assertNotEqual(read_by_ezdxf(file)[0], own)

    def test_ezdxf_reads_the_default_map_and_gdal_counts_it(self):
        file = self.draw(["--projection", "robinson"], "world.dxf")
        entities, wrong = read_by_ezdxf(file)
        self.assertEqual(wrong, 0)
        self.assertGreater(len(entities), 9000)
        self.assertEqual(entities, own_entities(file.read_bytes()))
        told = subprocess.run(["ogrinfo", "-al", "-so", str(file)], check=True, capture_output=True,
                              text=True).stdout
        self.assertEqual(int(re.search(r"Feature Count: (\d+)", told).group(1)), len(entities))
        extent = [float(number) for number in re.search(r"Extent: \((.*)\)", told).group(1)
                  .replace(") - (", ", ").split(", ")]
        x, y = zip(*(point for entity in entities for point in entity["points"]))
        self.assertEqual(extent, [min(x), min(y), max(x), max(y)])

    def test_imagemagick_sees_the_same_pixels_in_bmp_and_png(self):
        pixels = []
        for name in ("map.bmp", "map.png"):
            # An odd width, so that rows have padding.
            file = self.draw(["--projection", "robinson", "--window", "641x401"], name)
            told = subprocess.run(["identify", "-format", "%m %w %h %#", str(file)], check=True,
                                  capture_output=True, text=True).stdout.split()
            pixels.append(told[1:])
            self.assertIn(told[0], ("BMP", "BMP3", "PNG"))
        self.assertEqual(pixels[0], pixels[1])
        self.assertEqual(pixels[0][:2], ["641", "401"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
