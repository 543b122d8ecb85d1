#!/usr/bin/python3
"""Drawings in SVG are valid by the DTD of SVG 1.1, whatever is in them, and lie where the text export has them.

    svg_consumers.py PROGRAM
"""

import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as tree

import shapes
import svg_shapes

TITLES = ["<b>&amp; \"quotes\" 'too'", "]]>", "<!-- --", "K\u00f8ge \u6771\u4eac \U0001f30d", "tab\tline\nend\r", "\x01\x1f\x7f",
          "a\u0085b\ufffe\uffff", "  blanks   between  ", "x" * 5000, "\u202eback"]
PROJECTIONS = [1, 2, 6, 7, 8, 12, 16, 17, 26, 27, 28, 29, 30, 31, 40, 41, 42]


class SvgFiles(shapes.ConsumerTest):
    def assert_valid(self, file):
        self.assertEqual(svg_shapes.faults(file), "")
        text = file.read_text(encoding="utf-8")
        self.assertEqual(re.findall(r"href|url\(|@import|<script|<!DOCTYPE|<!ENTITY|<\?xml-|\son\w+=", text), [])
        self.assertEqual(re.findall(r"https?://[^\"]*", text), ["http://www.w3.org/2000/svg"])

    def test_every_projection_and_grid_is_valid(self):
        for projection in PROJECTIONS:
            for grid in (1, 3, 4):
                file = self.draw(["--projection", str(projection), "--grid-type", str(grid), "--no-map"], "grid.svg")
                self.assert_valid(file)

    def test_default_map_symbols_and_circles_are_valid(self):
        self.assert_valid(self.draw(["--projection", "robinson"], "world.svg"))
        self.assert_valid(self.draw(shapes.sheet(self.folder), "sheet.svg"))
        self.assert_valid(self.draw(["--no-map", "--great-circle", "37:47N,122:26W,29:20N,47:59E", "--small-circle",
                                     "52:31N,13:24E,60", "--circles", "4"], "circles.svg"))

    def test_the_test_sees_what_is_not_valid(self):
        file = self.draw(["--no-map"], "grid.svg")
        text = file.read_text(encoding="utf-8")
        file.write_text(text.replace("<g id=", "<g role=\"img\" id=", 1), encoding="utf-8")
        self.assertIn("role", svg_shapes.faults(file))
        file.write_text(text.replace("grid-1", "background", 1), encoding="utf-8")
        self.assertIn("already defined", svg_shapes.faults(file))

    def test_titles_and_texts_of_any_letters_are_valid_and_read_back(self):
        options = ["--no-map"]
        for place, title in enumerate(TITLES):
            options += ["--text", title, "--at", f"10,{20 + 30 * place}"]
        file = self.draw(options, "texts.svg")
        self.assert_valid(file)
        texts = [text.text for text in tree.parse(file).getroot().iter(svg_shapes.NAMESPACE + "text")]
        plain = [re.sub("[\x00-\x1f\x7f-\x9f\ufffe\uffff]", " ", title) for title in TITLES]
        self.assertEqual(texts, plain)

    def test_names_of_map_files_that_are_no_utf8_are_valid_titles(self):
        for number, name in enumerate((b"\xff\xfe <&>.prn", b"K\xf8ge.prn", b"a\x01\x1b\"b.prn", "\u6771.prn".encode())):
            path = str(self.folder).encode() + b"/" + name
            with open(path, "wb") as file:
                file.write(b"-1 10 10\n0 20 20\n0 10 20\n")
            drawing = self.folder / f"named{number}.svg"
            subprocess.run([str(shapes.PROGRAM).encode(), b"--map", path, str(drawing).encode()], check=True)
            self.assert_valid(drawing)
            self.assertIn("map-file-1", drawing.read_text(encoding="utf-8"))

    def test_lines_lie_where_the_text_export_has_them(self):
        options = ["--projection", "robinson", "--window", "1281x925", "--grid-type", "5"]
        drawn = svg_shapes.lines(self.draw(options, "world.svg"))
        self.draw(options, "world.txt")
        told = [[]]
        for line in (self.folder / "world-Qmnt4.map.txt").read_text().splitlines():
            pair = [float(word) for word in line.split()]
            if pair == [5, 5]:
                told.append([])
            else:
                told[-1].append(pair)
        told = [line for line in told if line]
        # A lone point is a line of two in the drawing.
        told = [line * 2 if len(line) == 1 else line for line in told]
        self.assertEqual([len(line) for line in drawn], [len(line) for line in told])
        self.assertGreater(len(drawn), 6000)
        for axis in (0, 1):
            mine = [point[axis] for line in drawn for point in line]
            theirs = [point[axis] for line in told for point in line]
            factor, offset = shapes.fit(theirs, mine)
            farthest = max(abs(a - (factor * b + offset)) for a, b in zip(mine, theirs))
            # Hundredths of a pixel, and seven decimals of the map's width.
            self.assertLess(farthest, 0.0052)

    def test_groups_name_the_parts_of_the_map(self):
        root = tree.parse(self.draw(["--projection", "robinson"], "world.svg")).getroot()
        self.assertEqual(root.find(svg_shapes.NAMESPACE + "title").text, "Outline map")
        self.assertIn("Robinson", root.find(svg_shapes.NAMESPACE + "desc").text)
        groups = root.findall(svg_shapes.NAMESPACE + "g")
        self.assertEqual([group.find(svg_shapes.NAMESPACE + "title").text for group in groups], ["Grid", "Qmnt4.map"])
        features = {group.find(svg_shapes.NAMESPACE + "title").text
                    for group in groups[1].findall(svg_shapes.NAMESPACE + "g")}
        self.assertTrue({"Coastlines", "Islands", "Lakes", "Rivers", "Countries"} <= features, features)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
