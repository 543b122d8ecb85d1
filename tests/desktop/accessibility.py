#!/usr/bin/python3
"""Reads back what a screen reader is told of the window and its dialogs.

    accessibility.py PROGRAM

PROGRAM lies in a folder of its own, which may be written; screen, window manager and session bus are there.
"""

import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402 (only now)

PROGRAM = Path(sys.argv[1])
FOLDER = PROGRAM.parent
LONGEST = 30  # seconds
WORLD = "Equirectangular projection, latitude 90\u00b0 N to 90\u00b0 S, longitude 180\u00b0 W to 180\u00b0 E"

# Keys in the main window, the dialog that they bring, and a control of it that must be told by its name.
DIALOGS = [
    (["alt+d"], "Select Map Size", "Percent Full Screen"),
    (["alt+m", "b"], "Non-azimuthal Projection Boundaries", "Northernmost latitude of map"),
    (["alt+m", "c"], "Select Endpoints of Great Circle", "Great Circle Line Width"),
    (["alt+m", "s"], "Select Center and Radius of Small Circle", "Show on map"),
    (["alt+m", "t"], "Select Text and Rotation", "OK"),
    (["alt+m", "l"], "Select Label Option", "OK"),
    (["alt+m", "a"], "Select Color", "Cancel"),
    (["alt+m", "g"], "Grid Color, Width, Type", "OK"),
    (["alt+m", "w"], "Line Width Scaling", "OK"),
    (["alt+m", "m"], "Map Parameter Report", "Close"),
    (["alt+f", "o"], "Add or Edit Digital Map File", "Edit Digital Map File"),
    (["alt+h", "a"], "About Quelmont", "OK"),
]


def keys(*names):
    for name in names:
        subprocess.run(["xdotool", "key", name], check=True)
        time.sleep(0.2)


def has(thing, state):
    return thing.get_state_set().contains(state)


def tree(thing):
    """A part of the program and all parts inside it."""
    yield thing
    for place in range(thing.get_child_count()):
        child = thing.get_child_at_index(place)
        if child is not None:
            yield from tree(child)


def eventually(ask, what):
    """What ask answers, as soon as it is something; things may go while they are asked."""
    end = time.monotonic() + LONGEST
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if answer := ask():
                return answer
        except GLib.GError:
            pass
        time.sleep(0.1)
    raise AssertionError(what)


class Program:
    """The running program as the bus tells of it."""

    def __init__(self):
        environment = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb",
                       "HOME": str(FOLDER), "XDG_CONFIG_HOME": str(FOLDER), "XDG_RUNTIME_DIR": str(FOLDER)}
        environment.pop("WAYLAND_DISPLAY", None)
        self.process = subprocess.Popen([PROGRAM], env=environment)
        eventually(self.application, "the program on the bus")

    def application(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for place in range(desktop.get_child_count()):
            found = desktop.get_child_at_index(place)
            if found is not None and found.get_process_id() == self.process.pid:
                return found
        return None

    def windows(self):
        application = self.application()
        return [application.get_child_at_index(place) for place in range(application.get_child_count())]

    def window(self, name):
        """A window of that name that is seen."""
        found = [window for window in self.windows() if window.get_name() == name]
        return found[0] if found and has(found[0], Atspi.StateType.SHOWING) else None

    def wait_for(self, name):
        window = eventually(lambda: self.window(name), f'a window "{name}" among '
                            f"{[window.get_name() for window in self.windows()]}")
        eventually(lambda: has(self.window(name), Atspi.StateType.ACTIVE), f'"{name}" to be active')
        return window

    def main(self):
        return next(window for window in self.windows() if window.get_role() == Atspi.Role.FRAME)

    def map(self):
        return next(thing for thing in tree(self.main()) if thing.get_name() == "Map")

    def end(self):
        self.process.kill()
        self.process.wait()


class Names(unittest.TestCase):
    def setUp(self):
        for file in [*FOLDER.glob("*.ini"), *FOLDER.glob("*.cnf"), *FOLDER.glob(".*")]:
            if file.is_file():
                file.unlink()
        self.program = Program()
        self.addCleanup(lambda: self.program.end())
        self.program.wait_for("Quelmont: Equirectangular projection")

    def check_names(self, window):
        """Everything that can have the focus or be pressed is called something."""
        count = 0
        for thing in tree(window):
            pressed = thing.get_role() in (Atspi.Role.PUSH_BUTTON, Atspi.Role.CHECK_BOX, Atspi.Role.RADIO_BUTTON)
            shown = has(thing, Atspi.StateType.SHOWING)
            if shown and (pressed or has(thing, Atspi.StateType.FOCUSABLE)):
                # A cell of a table without a text is read by its picture's words; the table has a name.
                if thing.get_role() not in (Atspi.Role.TABLE_CELL, Atspi.Role.LIST_ITEM):
                    count += 1
                    self.assertNotEqual(thing.get_name(), "", f"{thing.get_role_name()} in {window.get_name()}")
                    self.assertNotIn("&", thing.get_name())
        self.assertGreater(count, 0, window.get_name())

    def test_map_tells_its_projection_and_bounds_and_each_change(self):
        self.assertEqual(self.program.map().get_description(), "Choose a projection, then Draw Map (Alt+D)")
        self.assertTrue(has(self.program.map(), Atspi.StateType.FOCUSED))
        told = []
        listener = Atspi.EventListener.new(lambda event: told.append(event.source.get_description()))
        listener.register("object:property-change:accessible-description")
        self.addCleanup(listener.deregister, "object:property-change:accessible-description")
        time.sleep(1)  # until the program has heard of the listener
        keys("alt+d")
        self.program.wait_for("Select Map Size")
        keys("Return")
        eventually(lambda: self.program.map().get_description() == WORLD, "the description of the map")
        eventually(lambda: WORLD in told, f"the event among {told}")

    def test_every_menu_and_item_has_a_name(self):
        menus = [thing for thing in tree(self.program.main()) if thing.get_role() == Atspi.Role.POPUP_MENU]
        self.assertGreaterEqual(len(menus), 6)
        for menu in menus:
            self.assertNotEqual(menu.get_name(), "")
            for place in range(menu.get_child_count()):
                item = menu.get_child_at_index(place)
                hidden = has(item, Atspi.StateType.INVALID) or menu.get_name() == "Recent Map Designs"
                if item.get_role() != Atspi.Role.SEPARATOR and not hidden:
                    self.assertNotEqual(item.get_name(), "", menu.get_name())
                    self.assertNotIn("&", item.get_name())

    def test_every_control_of_the_dialogs_has_a_name(self):
        for pressed, title, control in DIALOGS:
            with self.subTest(title):
                keys(*pressed)
                try:
                    window = self.program.wait_for(title)
                    self.check_names(window)
                    self.assertIn(control, [thing.get_name() for thing in tree(window)])
                finally:
                    keys("Escape")
                    eventually(lambda: self.program.window(title) is None, f"{title} to close")

    def test_question_about_an_earlier_design_has_a_name_and_a_text(self):
        keys("alt+p", "r")
        self.program.wait_for("Non-azimuthal Projection Boundaries")
        keys("Return")
        self.program.wait_for("Quelmont: Robinson projection")
        eventually(lambda: [file for file in FOLDER.iterdir() if file.name.startswith("Qmnt-kept-")], "a kept design")
        os.kill(self.program.process.pid, signal.SIGKILL)
        self.program.process.wait()
        self.program = Program()
        window = self.program.wait_for("Recall Map Design")
        self.check_names(window)
        self.assertEqual(window.get_role(), Atspi.Role.ALERT)
        self.assertIn("was not saved", window.get_description())
        buttons = [thing.get_name() for thing in tree(window) if thing.get_role() == Atspi.Role.PUSH_BUTTON]
        self.assertEqual(sorted(buttons), ["Discard", "Recall"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
