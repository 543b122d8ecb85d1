#!/usr/bin/python3
"""Other programs read what quelmont-draw writes: LibreOffice CGM, RTF and SVG, Inkscape WMF and SVG, Chromium SVG,
libwmf WMF, LibreCAD DXF.

    heavy_consumers.py PROGRAM

Each reads the default map and a sheet of symbols and lines; the coordinates of what it read are those in the
file. The same comparison must fail when a line is missing and when a symbol is changed.
"""

import os
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as tree

import shapes

TIMEOUT = 240
NUMBER = re.compile(r"-?\d+(?:\.\d+)?(?:e-?\d+)?")


def run(*command, folder):
    environment = dict(os.environ, HOME=str(folder), QT_QPA_PLATFORM="offscreen")
    subprocess.run([str(word) for word in command], cwd=folder, env=environment, timeout=TIMEOUT, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def numbers(text):
    return [float(word) for word in NUMBER.findall(text)]


def length(element, name):
    return numbers(next(value for key, value in element.items() if key.endswith("}" + name)))[0]


def libreoffice(file):
    """Shapes of the flat drawing that LibreOffice makes of a file, in units of 0.01 mm."""
    run("soffice", "--headless", "--convert-to", "fodp", file, folder=file.parent)
    root = tree.parse(file.with_suffix(".fodp")).getroot()
    widths = {}
    for style in root.iter():
        if style.tag.endswith("}style"):
            name = next((value for key, value in style.items() if key.endswith("}name")), "")
            for properties in style:
                for key, value in properties.items():
                    if key.endswith("}stroke-width"):
                        widths[name] = numbers(value)[0] * 1000
    found = []
    page = next(element for element in root.iter() if element.tag.endswith("}page"))
    for element in page:
        kind = element.tag.split("}")[1]
        style = next((value for key, value in element.items() if key.endswith("}style-name")), "")
        width = widths.get(style, 0)
        if kind == "line":
            found.append(("line", [(1000 * length(element, "x" + end), 1000 * length(element, "y" + end))
                                   for end in "12"], width))
        elif kind in ("polyline", "polygon"):
            left, top = (1000 * length(element, name) for name in "xy")
            points = next(value for key, value in element.items() if key.endswith("}points"))
            found.append(("line" if kind == "polyline" else kind,
                          [(left + x, top + y) for x, y in shapes.pairs(numbers(points))], width))
        elif kind == "circle":
            left, top, wide, high = (1000 * length(element, name) for name in ("x", "y", "width", "height"))
            found.append(("ellipse", [(left + wide / 2, top + high / 2), (wide / 2, high / 2)], width))
    return found


def inkscape(file):
    """Shapes of the plain SVG that Inkscape makes of a file, pixels."""
    output = file.with_suffix(".svg")
    run("inkscape", "--export-plain-svg", f"--export-filename={output}", file, folder=file.parent)
    found = []
    for element in tree.parse(output).getroot().iter():
        kind = element.tag.split("}")[1]
        stroke = re.search(r"stroke-width:([\d.e-]+)", element.get("style", ""))
        width = float(stroke.group(1)) if stroke else 0
        if kind == "path" and element.get("d"):
            closed = "z" in element.get("d").lower()
            found.append(("polygon" if closed else "line", shapes.pairs(numbers(element.get("d"))), width))
        elif kind == "ellipse":
            cx, cy, rx, ry = (float(element.get(name)) for name in ("cx", "cy", "rx", "ry"))
            found.append(("ellipse", [(cx, cy), (rx, ry)], width))
    return found


def painted(file, program):
    """Pixels of each row and column that are not white, of what Ghostscript paints of a page."""
    output = file.with_suffix(".pgm")
    run("gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=pgmraw", "-r72", f"-sOutputFile={output}",
        program, folder=file.parent)
    data = output.read_bytes()
    return sum(byte < 250 for byte in data[data.index(b"255\n") + 4:])


def libwmf(file):
    """Lines of the PostScript that libwmf makes of a file; each axis has a scale of its own there."""
    program = file.with_suffix(".eps")
    run("wmf2eps", "-o", program, file, folder=file.parent)
    found = []
    for block in program.read_text().split("gsave % wmf_[eps_]")[1:]:
        if block.startswith("poly_line"):
            points = [tuple(numbers(line)) for line in block[:block.index("newpath")].splitlines()[2:]]
            width = float(re.search(r"([\d.]+) setlinewidth", block).group(1))
            found.append(("line", points[::-1], width))
    return found


def printed_words(file):
    """Words of the pages that LibreOffice makes of a text, each with its left edge in points, line by line."""
    run("soffice", "--headless", "--convert-to", "pdf", file, folder=file.parent)
    page = subprocess.run(["pdftotext", "-bbox", file.with_suffix(".pdf"), "-"], check=True,
                          capture_output=True).stdout
    lines = {}
    pages = (element for element in tree.fromstring(page).iter() if element.tag.endswith("}page"))
    for number, sheet in enumerate(pages):
        for word in sheet:
            place = (number, round(float(word.get("yMax"))))
            lines.setdefault(place, []).append((float(word.get("xMin")), word.text))
    return [sorted(lines[place]) for place in sorted(lines)]


def librecad(file):
    run("librecad", "dxf2pdf", "-a", "-c", "-o", file.with_suffix(".pdf"), file, folder=file.parent)
    return painted(file, file.with_suffix(".pdf"))


def inkscape_picture(file, output):
    run("inkscape", "--export-type=png", f"--export-filename={output}", file, folder=file.parent)


def chromium_picture(file, output):
    run("chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--window-size=1280,924",
        f"--screenshot={output}", file, folder=file.parent)


def libreoffice_picture(file, output):
    folder = file.parent / "office"
    run("soffice", "--headless", "--convert-to", "png", "--outdir", folder, file, folder=file.parent)
    (folder / file.name).with_suffix(".png").rename(output)


def blocks(picture):
    """How light a picture of 1280 by 924 pixels is in squares of eight pixels, 0 to 255."""
    return subprocess.run(["convert", str(picture), "-background", "white", "-flatten", "-colorspace", "Gray", "-resize",
                           "160x116!", "-depth", "8", "gray:-"], check=True, capture_output=True).stdout


def farthest(one, other):
    return max(abs(a - b) for a, b in zip(blocks(one), blocks(other)))


class Consumers(shapes.ConsumerTest):
    def compare_sheets(self, ending, own, read, tolerance, width_tolerance):
        options = shapes.sheet(self.folder)
        for name, more in (("scaled", []), ("unscaled", ["--no-line-scaling"])):
            file = self.draw(options + more, f"{name}.{ending}")
            self.assertIsNone(shapes.difference(own(file.read_bytes()), read(file), tolerance, width_tolerance))
        data = file.read_bytes()
        mine = own(data)
        line = next(shape for shape in reversed(mine) if shape[0] == "line")
        file.write_bytes(shapes.without(data, line))
        self.assertIsNotNone(shapes.difference(mine, read(file), tolerance, width_tolerance), "a line is missing")
        symbol = next(shape for shape in reversed(mine) if shape[0] == "ellipse")
        file.write_bytes(shapes.with_larger(data, symbol))
        self.assertIsNotNone(shapes.difference(mine, read(file), tolerance, width_tolerance), "a symbol is larger")

    def test_libreoffice_reads_the_sheet_from_cgm(self):
        # A hundredth of a millimetre is 1.5 units; widths are whole hundredths.
        self.compare_sheets("cgm", shapes.cgm_shapes, libreoffice, 4, 1.01)

    def test_libreoffice_reads_the_default_map_from_cgm(self):
        file = self.draw(["--projection", "robinson"], "world.cgm")
        # It drops lines of one point, and some of the points that are repeated.
        own = [shape for shape in shapes.cgm_shapes(file.read_bytes()) if len(set(shape[1])) > 1]
        read = libreoffice(file)
        self.assertIsNone(shapes.places_difference(own, read, 4))
        self.assertIsNotNone(shapes.places_difference(own[1:], read, 4), "a line is missing")

    def test_inkscape_reads_the_sheet_from_wmf(self):
        self.compare_sheets("wmf", shapes.wmf_shapes, inkscape, 1, 0.01)

    def test_inkscape_reads_the_default_map_from_wmf(self):
        file = self.draw(["--projection", "robinson"], "world.wmf")
        own = shapes.wmf_shapes(file.read_bytes())
        read = inkscape(file)
        self.assertIsNone(shapes.difference(own, read, 1, 0.01))
        self.assertIsNotNone(shapes.difference(own, read[1:], 1, 0.01), "a line is missing")
        kind, points, width = read[-1]
        moved = read[:-1] + [(kind, [(x + 5, y) for x, y in points], width)]
        self.assertIsNotNone(shapes.difference(own, moved, 1, 0.01), "a line is moved")

    def test_libwmf_reads_the_lines_from_wmf(self):
        # Without rectangles: it takes the corners of the first one from anywhere in its memory.
        symbols = [symbol for symbol in shapes.ALL_SYMBOLS if symbol not in shapes.RECTANGLES]
        file = self.draw(shapes.sheet(self.folder, symbols), "sheet.wmf")
        data = file.read_bytes()
        own = [shape for shape in shapes.wmf_shapes(data) if shape[0] == "line"]
        self.assertIsNone(shapes.difference(own, libwmf(file), 1, 0.1))
        self.assertGreater(painted(file, file.with_suffix(".eps")), 1000)
        file.write_bytes(shapes.without(data, own[-1]))
        self.assertIsNotNone(shapes.difference(own, libwmf(file), 1, 0.1), "a line is missing")
        file.write_bytes(shapes.with_larger(data, own[0]))
        self.assertIsNotNone(shapes.difference(own, libwmf(file), 1, 0.1), "a symbol is larger")
        world = self.draw(["--projection", "robinson"], "world.wmf")
        libwmf(world)  # it cuts long lines, in a way of its own
        self.assertGreater(painted(world, world.with_suffix(".eps")), 10000)

    def test_libreoffice_reads_the_texts_of_a_cgm_file(self):
        # It refuses every file with a turned text; why is not known.
        file = self.draw(["--no-map", "--window", "640x462", "--text", "Caf\u00e9", "--at", "100,100", "--text-size",
                          "24", "--text", "Second", "--at", "300,300", "--text-color", "FF0000"], "texts.cgm")
        run("soffice", "--headless", "--convert-to", "fodp", file, folder=file.parent)
        told = file.with_suffix(".fodp").read_text(encoding="utf-8")
        self.assertRegex(told, r">Caf\S<")
        self.assertIn(">Second<", told)

    def test_libreoffice_shows_scale_bar_and_labels_of_the_grid_in_their_places(self):
        for ending in ("dxf", "wmf", "svg"):
            file = self.draw(["--no-map", "--grid-type", "5", "--projection", "equirectangular", "--frame",
                              "--scale-bar", "km@30N", "--grid-labels", "frame"], "framed." + ending)
            places = {}
            for down, line in enumerate(printed_words(file)):
                for left, word in line:
                    places.setdefault(word, []).append((left, down))
            for word in ("Scale", "km", "0\u00b0", "180\u00b0", "90\u00b0N", "90\u00b0S", "135\u00b0W", "135\u00b0E"):
                self.assertIn(word, places, ending)
            east = [min(places[f"{degrees}\u00b0E"])[0] for degrees in (45, 90)]
            west = [min(places[f"{degrees}\u00b0W"])[0] for degrees in (45, 90)]
            self.assertGreater(east[1] - east[0], 20, ending)
            self.assertAlmostEqual(west[0] - west[1], east[1] - east[0], delta=0.5, msg=ending)
            rows = [min(down for _, down in places[label])
                    for label in ("60\u00b0N", "30\u00b0N", "30\u00b0S", "60\u00b0S")]
            self.assertEqual(rows, sorted(rows), ending)

    def test_libreoffice_prints_the_lines_of_a_report_and_its_columns_below_each_other(self):
        route = ["--no-map", "--projection", "robinson", "--great-circle", "37:47N,122:26W,29:20N,47:59E",
                 "--small-circle", "37:47N,122:26W,15"]
        for option in ("--report", "--great-circle-report"):
            plain = self.draw(route + [option], "report.txt").read_text(encoding="utf-8")
            lines = printed_words(self.draw(route + [option], "report.rtf"))
            told = [" ".join(re.sub("-+", "-", word) if set(word) == {"-"} else word for _, word in line)
                    for line in lines]
            expected = [" ".join(re.sub("^-+$", "-", line.strip()).split()) for line in plain.splitlines()]
            self.assertEqual(told, [line for line in expected if line])
            # The rows of the table begin with two or three digits and the angles of a place.
            rows = [line for line in lines if len(line) > 9 and line[0][1].isdigit()]
            self.assertGreater(len(rows), 11)
            for column in (0, 1, 5, 9, 10, 11):
                edges = [row[column][0] for row in rows]
                self.assertLess(max(edges) - min(edges), 0.5, f"column {column}")
            words = [right - left for row in rows for (left, _), (right, _) in zip(row, row[1:])]
            self.assertGreater(min(words), 5, "no cell runs into the next one")

    def test_libreoffice_reads_letters_that_rich_text_uses_itself(self):
        name = self.folder / "{map} \\ \u0391\u03b8\u03ae\u03bd\u03b1 \u6771\u4eac \u00fc.prn"
        name.write_text("-1 10 10\n0 20 20\n")
        lines = printed_words(self.draw(["--map", str(name), "--report"], "report.rtf"))
        self.assertTrue(any(" ".join(word for _, word in line).endswith(name.name) for line in lines), lines)

    def test_other_programs_show_the_picture_that_a_drawing_is_of(self):
        options = ["--projection", "robinson", "--great-circle", "37:47N,122:26W,29:20N,47:59E", "--great-circle-width",
                   "3", "--text", "Atlantic Ocean", "--at", "560,520", "--rotate", "65", "--text-size", "16"]
        picture = self.draw(options, "world.png")
        drawing = self.draw(options, "world.svg")
        text = drawing.read_text(encoding="utf-8")
        begin = text.index("<g id=\"great-circle-1\"")
        lacking = drawing.with_name("lacking.svg")
        lacking.write_text(text[:begin] + text[text.index("</g>\n", begin) + 5:], encoding="utf-8")
        for show in (inkscape_picture, chromium_picture, libreoffice_picture):
            output = self.folder / f"{show.__name__}.png"
            show(drawing, output)
            # Their lines are smooth, those of the picture are not.
            self.assertLess(farthest(picture, output), 75, show.__name__)
            show(lacking, output)
            self.assertGreater(farthest(picture, output), 90, "the great circle is missing")

    def test_librecad_prints_dxf(self):
        file = self.draw(shapes.sheet(self.folder), "sheet.dxf")
        text = file.read_bytes().decode("ascii")
        whole = librecad(file)
        begin = text.rindex("  0\r\nPOLYLINE")
        file.write_bytes((text[:begin] + text[text.index("  0\r\nENDSEC", begin):]).encode("ascii"))
        self.assertLess(librecad(file), whole - 100)
        self.assertGreater(librecad(self.draw(["--projection", "robinson"], "world.dxf")), 10000)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
