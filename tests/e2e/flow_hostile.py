"""Owners that hang, die, lie or flood: the window answers at once throughout, and the next copy is captured."""

import os
import tempfile
import time

from harness.conditions import TimedOut
from harness.owners import Owner, copy
from harness.program import press
from harness.program_test import ProgramTest

LONGEST_ANSWER = 0.1  # seconds
ATTEMPTS = 3
# A window that waits for the owner of the clipboard is silent for about as long as the owner is given.
WAIT_FOR_OWNER = 0.9  # seconds
# The reader gives a silent owner up after one second; the window is watched beyond that.
WATCHED = 1.5  # seconds


class Hostile(ProgramTest):
    def watch_answers(self, condition, timeout):
        """Asks the window again and again until the condition holds or time is up; each answer has to come at once."""
        deadline = time.monotonic() + timeout
        longest = 0.0
        while time.monotonic() < deadline and not condition():
            longest = max(longest, self.program.answer_time())
        self.longest = max(longest, self.longest)
        return time.monotonic() < deadline

    def longest_answer_with(self, *owner_arguments):
        """A hostile copy, watched for a while, then another one, then at once a well-behaved one, which must arrive."""
        self.longest = 0.0
        with Owner(*owner_arguments):
            self.watch_answers(lambda: False, WATCHED)
        with Owner(*owner_arguments):
            text = f"after {time.monotonic_ns()}"
            copy(text)
            if not self.watch_answers(lambda: text in self.program.texts(), 10):
                raise TimedOut("the copy after the hostile one did not come")
        return self.longest

    def check_next_copy_is_captured(self, *owner_arguments):
        # A wait that the program falls into is there every time; one that a busy machine causes is not.
        answers = []
        while len(answers) < ATTEMPTS and min(answers, default=LONGEST_ANSWER) >= LONGEST_ANSWER:
            answers.append(self.longest_answer_with(*owner_arguments))
            self.assertLess(answers[-1], WAIT_FOR_OWNER)
        print(f"{self.id()}: longest answers {[f'{answer * 1000:.1f} ms' for answer in answers]}")
        self.assertLess(min(answers), LONGEST_ANSWER)

    def check_file(self, data, *targets):
        with tempfile.NamedTemporaryFile() as file:
            file.write(data)
            file.flush()
            self.check_next_copy_is_captured(*(f"{target}={file.name}" for target in targets))

    def test_hangs(self):
        self.check_next_copy_is_captured("UTF8_STRING:x", "--mode", "hang")

    def test_answers_late(self):
        self.check_next_copy_is_captured("text/rtf:{\\rtf1 late}", "UTF8_STRING:late", "--mode", "slow", "--delay", "900")

    def test_dies_in_the_middle(self):
        self.check_next_copy_is_captured("text/rtf:{\\rtf1 cut off here}", "--mode", "die")

    def test_announces_two_gigabytes(self):
        self.check_next_copy_is_captured("UTF8_STRING:x", "--mode", "announce-huge")

    def test_sends_two_gigabytes_byte_by_byte(self):
        self.check_next_copy_is_captured(f"UTF8_STRING:{'x' * 1000}", "--mode", "trickle", "--delay", "50")

    def test_refuses_everything(self):
        self.check_next_copy_is_captured("text/rtf:x", "UTF8_STRING:x", "--mode", "refuse")

    def test_answers_with_another_type(self):
        self.check_next_copy_is_captured("text/rtf:x", "UTF8_STRING:x", "--mode", "lie")

    def test_garbage_as_rich_text(self):
        self.check_file(b"{\\rtf1" + os.urandom(100_000), "text/rtf", "text/html")

    def test_depth_without_end_as_rich_text(self):
        self.check_file(b"{\\rtf1" + b"{" * 500_000, "text/rtf")

    def test_offers_only_a_format_of_its_own(self):
        self.check_next_copy_is_captured("application/x-of-its-own:x")

    def test_pasting_from_an_owner_that_hangs(self):
        copy("before")
        self.wait_for_box(1, "before")
        self.longest = 0.0
        with Owner("UTF8_STRING:x", "text/html:x", "--mode", "hang"):
            self.watch_answers(lambda: False, WATCHED)
            press("ctrl+v")
            self.watch_answers(lambda: False, WATCHED)
            press("shift+F10")
            self.watch_answers(lambda: False, WATCHED)
            press("Escape")
        self.assertLess(self.longest, WAIT_FOR_OWNER)
        self.wait_for_box(1, "before")
