"""A test case with a program of its own."""

import os
import unittest

from .conditions import wait_equal
from .owners import empty_clipboard
from .program import Program


class ProgramTest(unittest.TestCase):
    """Starts the program before each test; afterwards it must still run and have complained of nothing."""

    def setUp(self):
        self.addCleanup(empty_clipboard)
        self.program = Program(os.environ["SNIPDECK_BINARY"])
        self.addCleanup(self._end)

    def _end(self):
        was_running = self.program.is_running()
        complaints = self.program.end()
        self.assertTrue(was_running, f"the program ended by itself:\n{complaints}")
        self.assertEqual(complaints, "")

    def wait_for_box(self, number, text):
        wait_equal(f"text box {number}", text, lambda: self.program.box(number).text())

    def wait_for_kind(self, kind):
        wait_equal("the format label", kind, self.program.kind)
