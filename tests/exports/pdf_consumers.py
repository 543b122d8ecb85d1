#!/usr/bin/python3
"""Poppler and qpdf read the PDF pages that quelmont-draw writes.

    pdf_consumers.py PROGRAM
"""

import re
import shutil
import subprocess
import sys
import unicodedata
import unittest

import shapes

PLACES = [
    (48.85, 2.35, "Paris"), (46.20, 6.15, "Gen\u00e8ve"), (37.98, 23.73, "\u0391\u03b8\u03ae\u03bd\u03b1"),
    (55.75, 37.62, "\u041c\u043e\u0441\u043a\u0432\u0430"), (35.68, 139.69, "\u6771\u4eac"),
    (30.04, 31.24, "\u0627\u0644\u0642\u0627\u0647\u0631\u0629"), (-34.60, -58.38, "Buenos Aires"),
]
TITLE = ["--text", "A (Title) \\ of 100%", "--at", "5%,8%", "--text-size", "28", "--bold", "--underline",
         "--text", "Upwards", "--at", "6%,90%", "--rotate", "90", "--font", "Liberation Serif",
         "--text", "\u65e5\u672c \u0395\u03bb\u03bb\u03ac\u03b4\u03b1", "--at", "70%,95%"]


def told(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True).stdout


def words(file):
    """The texts of a file, in the letters that a person types, without marks of direction."""
    text = told("pdftotext", file, "-").decode()
    text = re.sub("[\u200e\u200f\u202a-\u202e\u2066-\u2069]", "", text)
    return unicodedata.normalize("NFKC", text)


def fonts(file):
    """Whether each font of a file is embedded and can be read back as text."""
    rows = told("pdffonts", file).decode().splitlines()[2:]
    return {row.split()[0]: (row.split()[-5], row.split()[-3]) for row in rows}


HALF = 128


def ink(file, light=HALF):
    """A picture as rows of pixels, true where one is darker than that in red, green or blue."""
    data = told("convert", file, "-alpha", "off", "-depth", "8", "rgb:-")
    width, height = map(int, told("identify", "-format", "%w %h", file).split())
    pixels = [min(data[i:i + 3]) < light for i in range(0, len(data), 3)]
    return [pixels[row * width:(row + 1) * width] for row in range(height)]


def strays(rows, others):
    """The share of inked pixels that have none within a pixel in another picture."""
    lost = count = 0
    for y, row in enumerate(rows):
        for x, inked in enumerate(row):
            if inked:
                count += 1
                lost += not any(any(other[max(x - 1, 0):x + 2]) for other in others[max(y - 1, 0):y + 2])
    return lost / count


class Consumers(shapes.ConsumerTest):
    def setUp(self):
        super().setUp()
        shutil.copy(shapes.PROGRAM.parent / "Qmnt4.map", self.folder / "world.map")
        (self.folder / "towns.prn").write_text(
            "".join(f'-1 {latitude} {longitude} "{name}"\n' for latitude, longitude, name in PLACES))
        self.towns = ["--map", str(self.folder / "world.map"), "--map", str(self.folder / "towns.prn"),
                      "--symbol", "12", "--symbol-size", "4"]

    def check(self, file):
        """qpdf finds nothing wrong, not in a stream either."""
        told("qpdf", "--check", file)

    def page(self, file):
        told_of = dict(line.split(":", 1) for line in told("pdfinfo", file).decode().splitlines() if ":" in line)
        return {name.strip(): value.strip() for name, value in told_of.items()}

    def test_every_kind_of_map_is_one_sound_page(self):
        for name, options in {
                "robinson": ["--projection", "robinson", "--landscape"],
                "utm": ["--projection", "utm", "--paper", "Letter"],
                "lobes": ["--projection", "interrupted mollweide", "--background", "E0F0FF"],
                "circles": ["--projection", "azimuthal equidistant", "--great-circle", "37:47N,122:26W,29:20N,47:59E",
                            "--small-circle", "52:31N,13:24E,60", "--circles", "4"],
                "symbols": shapes.sheet(self.folder),
        }.items():
            file = self.draw(options, name + ".pdf")
            self.check(file)
            self.assertEqual(self.page(file)["Pages"], "1", name)

    def test_every_text_and_label_is_found(self):
        file = self.draw(["--projection", "mollweide", "--landscape", *self.towns, *TITLE], "towns.pdf")
        self.check(file)
        text = words(file)
        for name in [place[2] for place in PLACES] + [TITLE[1], "Upwards", TITLE[-3]]:
            self.assertIn(name, text)
        found = fonts(file)
        self.assertGreaterEqual(len(found), 4)
        self.assertEqual(set(found.values()), {("yes", "yes")}, found)

    def test_words_of_letters_that_fonts_join_are_found(self):
        sentence = "Pacific office, flat cliffs, fjord"
        for font in ("DejaVu Sans", "DejaVu Serif", "Liberation Sans"):
            file = self.draw(["--no-map", "--grid-type", "5", "--text", sentence, "--at", "10%,50%", "--font", font],
                             "joined.pdf")
            self.assertIn(sentence, told("pdftotext", file, "-").decode(), font)

    def test_text_that_is_turned_is_in_the_order_of_its_letters(self):
        file = self.draw(["--no-map", "--grid-type", "5", "--text", "Mare Nostrum", "--at", "40%,50%", "--rotate", "33"],
                         "turned.pdf")
        self.assertIn("Mare Nostrum", told("pdftotext", "-raw", file, "-").decode())

    def test_page_tells_its_title_and_no_time(self):
        told_of = self.page(self.draw(["--no-map"], "plain.pdf"))
        self.assertEqual(told_of["Title"], "Quelmont")
        self.assertEqual(told_of["Creator"], "Quelmont")
        self.assertNotIn("CreationDate", told_of)
        self.assertNotIn("ModDate", told_of)

    def test_papers_have_their_sizes(self):
        for options, size in {("--paper", "A4"): "595 x 842", ("--paper", "A3", "--landscape"): "1191 x 842",
                              ("--paper", "Letter"): "612 x 792", ("--paper", "Tabloid"): "792 x 1224",
                              ("--paper", "4x10in"): "288 x 720", ("--paper", "A0"): "2384 x 3370"}.items():
            file = self.draw(["--no-map", *options], "paper.pdf")
            self.assertIn(size + " pts", self.page(file)["Page size"])

    def test_page_looks_like_the_window(self):
        # A map 10 inches wide is as large at 128 dots an inch as a window of 1280 pixels.
        options = ["--projection", "robinson", "--window", "1280x924", *self.towns, *TITLE]
        page = self.draw([*options, "--paper", "A3", "--landscape", "--map-width", "10in", "--left", "1in",
                          "--top", "1in"], "page.pdf")
        window = self.draw(options, "window.png")
        told("pdftoppm", "-r", "128", "-png", "-singlefile", "-x", "128", "-y", "128", "-W", "1280", "-H", "924", page,
             self.folder / "page")
        drawn, seen = ink(self.folder / "page.png"), ink(window)
        # A line on the page covers less than half of a pixel here and there.
        self.assertLess(strays(seen, ink(self.folder / "page.png", 220)), 0.003)
        # An island that is smaller than a pixel is a line without length in the window.
        self.assertLess(strays(drawn, seen), 0.01)
        # The measure tells: on another projection most pixels have no counterpart.
        other = self.draw(["--projection", "mollweide", *options[2:]], "other.png")
        self.assertGreater(strays(drawn, ink(other)), 0.3)

    def test_nothing_lies_outside_of_the_maps_box(self):
        options = ["--no-map", "--grid-type", "5", "--background", "00FF00", "--window", "300x200", "--text",
                   "A text that is far too long for the width of its map", "--at", "10%,50%", "--text-size", "40"]
        page = self.draw([*options, "--paper", "5x5in", "--map-width", "3in", "--left", "1in", "--top", "1in"], "box.pdf")
        told("pdftoppm", "-r", "100", "-png", "-singlefile", page, self.folder / "box")
        rows = ink(self.folder / "box.png")
        inked = [(x, y) for y, row in enumerate(rows) for x, dot in enumerate(row) if dot]
        self.assertEqual((min(x for x, _ in inked), min(y for _, y in inked)), (100, 100))
        self.assertLessEqual(max(x for x, _ in inked), 400)
        self.assertLessEqual(max(y for _, y in inked), 300)

    def test_page_of_many_points_is_whole(self):
        name = self.folder / "many.map"
        count = 700_000
        name.write_bytes(b"".join(shapes.record(1000 if i == 0 else 0, i // 180 % 160 - 80, i * 7 % 340 - 170)
                                  for i in range(count)))
        file = self.draw(["--grid-type", "5", "--map", str(name), *TITLE], "many.pdf")
        self.check(file)
        self.assertEqual(self.page(file)["Pages"], "1")
        self.assertIn("Upwards", words(file))
        content = told("qpdf", "--qdf", "--object-streams=disable", file, "-")
        lines = len(re.findall(rb" l\n", content))
        self.assertGreaterEqual(lines, count - 1)
        self.assertLess(lines, count + 50, "of the clips")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
