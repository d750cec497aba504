"""Copies go round the twelve boxes, and all of them stay in the cumulative text."""

from harness.conditions import wait_equal
from harness.owners import Owner, copy
from harness.program_test import ProgramTest


class Ring(ProgramTest):
    def test_the_thirteenth_copy_comes_to_the_first_box_again(self):
        texts = [f"copy number {n}" for n in range(1, 14)]
        for number, text in enumerate(texts):
            copy(text)
            self.wait_for_box(number % 12 + 1, text)
        self.assertEqual(self.program.texts(), texts[12:] + texts[1:12])
        self.assertEqual(self.program.cumulative().text(), "".join(text + "\n" for text in texts))

    def test_the_same_text_twice_fills_two_boxes(self):
        for number in (1, 2):
            copy("the same again")
            self.wait_for_box(number, "the same again")
        self.assertEqual(self.program.texts()[2:], [""] * 10)

    def test_no_copy_of_a_quick_series_is_lost(self):
        expected = "".join(f"quick {n}\n" for n in range(1, 51))
        with Owner("UTF8_STRING:quick %d", "--count", "50", "--interval", "25"):
            wait_equal("the cumulative text", expected, self.program.cumulative().text, 20)


class Start(ProgramTest):
    copied_before = "copied before the start"

    def setUp(self):
        copy(self.copied_before)
        super().setUp()

    def test_what_was_copied_before_the_start_is_captured(self):
        self.wait_for_box(1, self.copied_before)
