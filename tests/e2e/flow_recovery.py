"""Killed at any moment, the program gives everything back at its next start.

SNIPDECK_KILLS says how often it is killed, SNIPDECK_SEED with which random numbers.
"""

import dataclasses
import os
import random
import signal
import threading
import time

from gi.repository import GLib
from harness.conditions import wait_equal
from harness.lives import LivesTest
from harness.owners import Owner, copy, empty_clipboard
from harness.program import BOX_COUNT, press

KILLS = int(os.environ.get("SNIPDECK_KILLS", "5"))
SEED = int(os.environ.get("SNIPDECK_SEED", "1"))
# What is older than this has to come back.
LOSABLE = 2.0  # seconds


class Recovery(LivesTest):
    def damaged_files(self):
        return list(self.folder.glob("*.damaged-*"))

    def test_what_was_copied_and_typed_comes_back(self):
        program = self.start()
        for number in (1, 2, 3):
            copy(f"copy {number}")
            wait_equal(f"text box {number}", f"copy {number}", lambda: program.box(number).text())
        press("x", "y")
        wait_equal("text box 1", "copy 1xy", lambda: program.box(1).text())
        time.sleep(LOSABLE)
        self.assertEqual(self.recovery_path.stat().st_mode & 0o777, 0o600)
        self.crash(program)

        program = self.start()
        # The third copy is still on the clipboard; it is not filed a second time.
        self.assertEqual(program.texts()[:4], ["copy 1xy", "copy 2", "copy 3", ""])
        self.assertEqual(program.cumulative().text(), "copy 1\ncopy 2\ncopy 3\n")
        copy("copy 4")
        wait_equal("text box 4", "copy 4", lambda: program.box(4).text())
        self.assertEqual(program.box(3).text(), "copy 3")
        self.assertEqual(self.damaged_files(), [])

    def test_a_damaged_file_is_kept_aside(self):
        program = self.start()
        for number in (1, 2):
            copy(f"copy {number}")
            wait_equal(f"text box {number}", f"copy {number}", lambda: program.box(number).text())
        self.crash(program)
        empty_clipboard()
        data = self.recovery_path.read_bytes()
        damaged = data[:-3] + b"???"
        self.recovery_path.write_bytes(damaged)
        program = self.start()
        self.assertEqual(program.texts()[:2], ["copy 1", ""])
        self.assertEqual([path.read_bytes() for path in self.damaged_files()], [damaged])
        self.end(program)
        self.assertEqual(len(self.damaged_files()), 1)

    def test_a_secret_is_not_kept(self):
        program = self.start()
        with Owner("x-kde-passwordManagerHint:secret", "UTF8_STRING:my password"):
            copy("after")
            wait_equal("text box 1", "after", lambda: program.box(1).text())
        data = self.recovery_path.read_bytes()
        self.assertIn(b"after", data)
        self.assertNotIn(b"password", data)

    def test_killed_at_random_moments(self):
        chance = random.Random(SEED)
        state = State([""] * BOX_COUNT, "", 0)
        for kill in range(KILLS):
            program = self.start()
            life = Life(program, state, chance)
            moment = life.until_killed(chance.uniform(0, 2 * LOSABLE))
            self.crash(program)
            empty_clipboard()
            again = self.start()
            returned = (again.texts(), again.cumulative().text())
            possible = life.states_since(moment - LOSABLE)
            matching = [state for state in possible if (state.texts, state.cumulative) == returned]
            self.assertTrue(matching, f"kill {kill} of seed {SEED}: {returned}, none of {possible}")
            state = matching[-1]
            # A start that is killed at once loses nothing either.
            self.crash(again)
        print(f"{KILLS} kills, seed {SEED}: {state.copies} copies, {len(state.cumulative)} characters came back")
        self.assertEqual(self.damaged_files(), [])


@dataclasses.dataclass
class State:
    """What the program should hold."""

    texts: list
    cumulative: str
    copies: int

    def with_letter(self, letter):
        return State([self.texts[0] + letter] + self.texts[1:], self.cumulative, self.copies)

    def with_copy(self, text):
        texts = list(self.texts)
        texts[self.copies % BOX_COUNT] = text
        return State(texts, self.cumulative + text + "\n", self.copies + 1)


class Life:
    """Types into box 1 and copies, at random, until the program is killed in the middle of it."""

    def __init__(self, program, state, chance):
        self.program = program
        self.chance = chance
        # Each state with the time from which on it was seen; the last one may not have been reached.
        self.history = [(0.0, state)]

    def until_killed(self, seconds):
        """Returns the moment of the kill."""
        moment = []

        def kill():
            os.kill(self.program.process_id(), signal.SIGKILL)
            moment.append(time.monotonic())

        timer = threading.Timer(seconds, kill)
        timer.start()
        while not moment:
            self.act()
        timer.join()
        return moment[0]

    def act(self):
        now = self.history[-1][1]
        letter = self.chance.choice("abcdefgh")
        text = f"copy {now.copies} {'long ' * self.chance.randrange(0, 2000)}"
        types = self.chance.random() < 0.5
        expected = now.with_letter(letter) if types else now.with_copy(text)
        self.history.append((float("inf"), expected))
        if types:
            press("End", letter)
        else:
            copy(text)
        while self.program.is_running():
            try:
                if self.seen(expected, types):
                    self.history[-1] = (time.monotonic(), expected)
                    return
            except GLib.Error:  # killed while it was asked
                time.sleep(0.01)

    def seen(self, expected, types):
        if types:
            return self.program.box(1).text() == expected.texts[0]
        return self.program.cumulative().length() == len(expected.cumulative)

    def states_since(self, moment):
        """Every state that the program may have been in since that moment."""
        before = max(index for index, (when, _) in enumerate(self.history) if when <= moment or index == 0)
        return [state for _, state in self.history[before:]]
