#!/usr/bin/env python3
"""What a desktop reads of the program: its entry in the menu, its types of files, its manual pages, completion.

    desktop_files.py SOURCES PROGRAMS

SOURCES is the folder of the project, PROGRAMS that of the three programs.
"""

import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

SOURCES, PROGRAMS = (Path(argument).resolve() for argument in sys.argv[1:3])
PACKAGING = SOURCES / "packaging"
NAMES = ("quelmont", "quelmont-draw", "quelmont-convert")


def run(*command, **environment):
    return subprocess.run([str(part) for part in command], text=True, capture_output=True,
                          env={**os.environ, **environment})


class DesktopFiles(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def succeed(self, *command, **environment):
        done = run(*command, **environment)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout

    def test_entry_of_the_menu_is_valid_without_a_hint(self):
        self.assertEqual(self.succeed("desktop-file-validate", PACKAGING / "quelmont.desktop"), "")

    def test_description_for_software_centres_is_valid(self):
        self.succeed("appstreamcli", "validate", "--no-net", "--pedantic",
                     PACKAGING / "org.quelmont.quelmont.metainfo.xml")

    def test_description_has_the_version_of_the_programs(self):
        root = xml.etree.ElementTree.parse(PACKAGING / "org.quelmont.quelmont.metainfo.xml").getroot()
        version = root.find("releases/release").get("version")
        for name in NAMES:
            self.assertEqual(self.succeed(PROGRAMS / name, "--version"), f"{name} {version}\n")
        self.assertIn(f"CPACK_PACKAGE_VERSION {version})", (PACKAGING / "CMakeLists.txt").read_text())
        self.assertTrue((PACKAGING / "changelog").read_text().startswith(f"quelmont ({version}) "))

    def test_manual_pages_are_clean_and_have_the_options_of_the_help(self):
        for name in NAMES:
            page = PACKAGING / "man" / f"{name}.1"
            self.assertEqual(self.succeed("mandoc", "-T", "lint", "-W", "warning", page), "")
            told = set(re.findall(r"^ +(?:-\w,? ?)?(--[a-z][a-z-]*)", self.succeed(PROGRAMS / name, "--help"), re.M))
            listed = {"--" + option for option in re.findall(r"^\.It .*?Fl Fl ([a-z-]+)", page.read_text(), re.M)}
            self.assertEqual(listed, told, name)

    def types(self):
        mime = self.folder / "mime"
        (mime / "packages").mkdir(parents=True)
        for folder in os.environ.get("XDG_DATA_DIRS", "/usr/local/share:/usr/share").split(":"):
            if (Path(folder) / "mime/packages/freedesktop.org.xml").is_file():
                shutil.copy(Path(folder) / "mime/packages/freedesktop.org.xml", mime / "packages")
        shutil.copy(PACKAGING / "quelmont.xml", mime / "packages")
        self.succeed("update-mime-database", mime)
        home = {"XDG_DATA_HOME": str(self.folder), "XDG_DATA_DIRS": str(self.folder), "HOME": str(self.folder)}

        def of(name, content):
            file = self.folder / name
            file.write_bytes(content)
            told = self.succeed("gio", "info", "-a", "standard::content-type", file, **home)
            found = re.search(r"standard::content-type: (\S+)", told).group(1)
            # On a desktop that has "gio", the tool of all desktops asks that.
            asked = self.succeed("xdg-mime", "query", "filetype", file, XDG_CURRENT_DESKTOP="GNOME", **home)
            self.assertEqual(asked.strip(), found, name)
            return found

        return of

    def test_designs_are_known_by_their_first_line(self):
        self.succeed(PROGRAMS / "quelmont-draw", "--save-design", self.folder / "made.cnf")
        type_of = self.types()
        design = (self.folder / "made.cnf").read_bytes()
        self.assertEqual(type_of("trip.cnf", design), "application/x-quelmont-design")

    def test_configuration_files_of_other_programs_keep_their_type(self):
        type_of = self.types()
        self.assertEqual(type_of("my.cnf", b"[mysqld]\nport = 3306\n"), "text/plain")
        self.assertEqual(type_of("openssl.cnf", b"# Configuration\nHOME = .\n"), "text/plain")

    def test_map_files_are_known_by_their_endings(self):
        type_of = self.types()
        for ending in ("pkv", "pkd", "grv", "grf", "mps", "mp1"):
            self.assertEqual(type_of(f"world.{ending}", b"\1\0\2" * 20), "application/x-quelmont-map", ending)

    def test_icons_are_as_large_as_their_names_say(self):
        for name in ("quelmont", "application-x-quelmont-design"):
            for size in (16, 24, 32, 48, 64, 128, 256):
                data = (PACKAGING / "icons" / f"{name}-{size}.png").read_bytes()
                self.assertEqual(struct.unpack(">II", data[16:24]), (size, size), name)

    def test_completion_knows_the_options_of_every_program(self):
        for name, word, wanted in (("quelmont-draw", "--spher", "--spheroid"), ("quelmont-convert", "--simp", "--simplify"),
                                   ("quelmont", "--ver", "--version")):
            script = (f"source {PACKAGING}/quelmont.bash; COMP_WORDS=({name} {word}); COMP_CWORD=1; "
                      f"_quelmont {name} {word} {name}; echo \"${{COMPREPLY[@]}}\"")
            self.assertEqual(self.succeed("bash", "-c", script, PATH=f"{PROGRAMS}:{os.environ['PATH']}"), wanted + "\n")

    def test_shell_scripts_are_clean(self):
        scripts = [file for folder in ("scripts", "tools", "packaging", "tests") for file in (SOURCES / folder).rglob("*")
                   if file.is_file() and (file.suffix in (".sh", ".bash") or
                                          re.match(rb"#!/bin/(ba)?sh", file.read_bytes()[:12]))]
        self.assertGreater(len(scripts), 8)
        self.succeed("shellcheck", "--severity=warning", "--external-sources", f"--source-path={SOURCES}", *sorted(scripts))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
