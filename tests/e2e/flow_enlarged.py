"""Nothing is captured while a box is enlarged."""

from harness.conditions import wait_until
from harness.owners import Owner, copy
from harness.program import press
from harness.program_test import ProgramTest


class Enlarged(ProgramTest):
    def test_capture_rests_while_a_box_is_enlarged(self):
        copy("first")
        self.wait_for_box(1, "first")
        press("F5")
        large = self.program.large_view()
        wait_until("the large view", large.is_shown)
        self.assertEqual(large.text(), "first")
        self.assertFalse(self.program.box(1).is_shown())

        with Owner("UTF8_STRING:not for the boxes", "--report") as owner:
            owner.wait_given("UTF8_STRING")
            # The program has it now; after one answer more it has handled it, too.
            self.program.answer_time()
            self.assertEqual(self.program.texts(), ["first"] + [""] * 11)

        press("F5")
        wait_until("the boxes", self.program.box(1).is_shown)
        copy("second")
        self.wait_for_box(2, "second")
        self.assertEqual(self.program.cumulative().text(), "first\nsecond\n")

    def test_capture_goes_on_beside_the_cumulative_view(self):
        press("ctrl+y")
        wait_until("the cumulative view", self.program.cumulative().is_shown)
        copy("seen at once")
        self.wait_for_box(1, "seen at once")
        self.assertEqual(self.program.cumulative().text(), "seen at once\n")
        press("ctrl+y")
        wait_until("the boxes", self.program.box(1).is_shown)
