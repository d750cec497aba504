"""The window's size and looks: by the dialog, beside the screen's edge, and kept over a restart."""

import os
import re
import subprocess
import tempfile
import unittest

from harness.accessible import Atspi
from harness.conditions import wait_equal, wait_until
from harness.program import Program, press

SCREEN = (1280, 900)


class WindowSize(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.TemporaryDirectory(prefix="snipdeck-home.")
        self.addCleanup(self.home.cleanup)
        self._start()

    def _start(self):
        self.program = Program(os.environ["SNIPDECK_BINARY"], self.home)
        self.addCleanup(self.program.end)

    def _window(self):
        return self._told("xdotool", "getactivewindow").strip()

    def _told(self, *arguments):
        return subprocess.run(arguments, capture_output=True, text=True, check=True).stdout

    def _frame(self, window):
        """Left, top, width and height of a window with its frame."""
        extents = self._told("xprop", "-id", window, "_NET_FRAME_EXTENTS").split("=")[1].split(",")
        left, right, top, bottom = (int(extent) for extent in extents)
        information = self._told("xwininfo", "-id", window)
        x, y, width, height = (int(re.search(rf"{name}: +(-?\d+)", information).group(1))
                               for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        return x - left, y - top, width + left + right, height + top + bottom

    def _choose(self, *keys):
        def dialog_is_active():
            return [node for node in self.program.tree.children() if node.name() == "Program window size" and
                    node.has_state(Atspi.StateType.ACTIVE)]
        press("ctrl+shift+F2")
        wait_until("the dialog", dialog_is_active)
        press(*keys)
        wait_until("its end", lambda: not dialog_is_active())

    def test_places_percentages_and_restart(self):
        window = self._window()
        width, height = SCREEN
        self._choose("Home", "Down", "Return")
        wait_equal("left half", (0, 0, width // 2, height), lambda: self._frame(window))
        self._choose("Home", "Return")
        wait_equal("whole screen", (0, 0, width, height), lambda: self._frame(window))
        # Out of the maximised state, and 80 % in the middle.
        subprocess.run(["wmctrl", "-i", "-r", window, "-b", "add,maximized_vert,maximized_horz"], check=True)
        wait_until("the maximised state", lambda: "MAXIMIZED_VERT" in self._told("xprop", "-id", window, "_NET_WM_STATE"))
        self._choose("Tab", "Home", "Down", "Down", "Down", "Down", "Down", "Return")
        wait_equal("80 %", (128, 90, 1024, 720), lambda: self._frame(window))
        before = self._frame(window)
        self._choose("Escape")
        self.assertEqual(self._frame(window), before)

        press("alt+F4")
        wait_until("the end", lambda: not self.program.is_running())
        with open(os.path.join(self.home.name, ".local/share/QM_Snipdeck/QM_Snipdeck.ini"), encoding="utf-8") as file:
            lines = file.read().splitlines()
        self.assertEqual(lines[15:17], ["0", "5"])
        self._start()
        again = self._window()
        wait_equal("the same place", before, lambda: self._frame(again))
