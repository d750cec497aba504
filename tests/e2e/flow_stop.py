"""How the program ends: what it asks, what it keeps, and that nobody has to answer when the system ends it."""

import os
import signal
import subprocess

from harness.close_window import close_window
from harness.conditions import wait_equal, wait_until
from harness.lives import SAVE_QUESTION, TO_CLIPBOARD_QUESTION, LivesTest, xdotool
from harness.owners import Owner, copy, empty_clipboard
from harness.program import press

RTF = r"{\rtf1\ansi\deff0{\fonttbl{\f0 Liberation Serif;}}plain {\b bold}}"


class Stop(LivesTest):
    def start_altered(self, text="not saved yet"):
        """What came back after a crash is not saved yet, and counts as the user's changes."""
        program = self.start()
        copy(text)
        wait_equal("text box 1", text, lambda: program.box(1).text())
        self.crash(program)
        empty_clipboard()
        program = self.start()
        self.assertEqual(program.box(1).text(), text)
        return program

    def saved_files(self):
        return sorted(path.name for path in self.folder.glob("*.rtf"))

    def close_answered(self, program, key):
        self.request_close(program)
        self.answer(program, SAVE_QUESTION, key)

    def test_unaltered_boxes_are_not_asked_about(self):
        program = self.start()
        copy("captured, not altered")
        wait_until("the copy", lambda: program.box(1).text())
        self.settings_path.unlink()
        self.request_close(program)
        self.wait_ended(program)
        self.settings()
        self.assertFalse(self.recovery_path.exists())

    def test_cancel_keeps_everything_and_no_saves_nothing(self):
        program = self.start_altered()
        self.settings_path.unlink()
        self.close_answered(program, "Escape")
        wait_until("the window again", lambda: xdotool("getactivewindow") == self.window(program))
        self.assertTrue(program.is_running())
        self.assertFalse(self.settings_path.exists())
        copy("still collecting")
        wait_equal("text box 2", "still collecting", lambda: program.box(2).text())
        self.close_answered(program, "n")
        self.wait_ended(program)
        self.settings()
        self.assertEqual(self.saved_files(), [])
        self.assertFalse(self.recovery_path.exists())

    def test_yes_saves_the_boxes_even_from_the_cumulative_view(self):
        program = self.start_altered()
        press("ctrl+y")
        wait_until("the cumulative view", program.cumulative().is_shown)
        self.close_answered(program, "y")
        self.answer(program, "Text boxes saved to disk in this folder:", "Return")
        self.wait_ended(program)
        self.assertEqual(len(self.saved_files()), 12)

    def test_closing_while_minimised_keeps_the_maximised_placement(self):
        program = self.start()
        window = self.window(program)
        xdotool("windowminimize", "--sync", window)
        close_window(window)
        self.wait_ended(program)
        self.assertEqual(self.settings()[1:5], ["0", "0", str(1280 * 15), str(900 * 15)])

    def test_the_system_s_end_asks_nothing_and_loses_nothing(self):
        program = self.start_altered("kept for the next time")
        self.settings_path.unlink()
        os.kill(program.process_id(), signal.SIGTERM)
        self.wait_ended(program)
        self.settings()
        self.assertEqual(self.start().box(1).text(), "kept for the next time")

    def test_the_system_s_end_does_not_wait_for_an_open_question(self):
        program = self.start_altered()
        self.request_close(program)
        self.wait_question(program, SAVE_QUESTION)
        self.settings_path.unlink()
        os.kill(program.process_id(), signal.SIGTERM)
        self.wait_ended(program)
        self.settings()


class StopCumulative(LivesTest):
    def start_with_copy(self):
        self.write_settings(l37=1, l18=-1, l3=15000, l4=11250)
        program = self.start("Cumulative clipboard text box")
        with Owner("UTF8_STRING:plain bold", f"text/rtf:{RTF}"):
            wait_equal("the cumulative text", "plain bold\n", lambda: program.cumulative().text())
        return program

    def pasted(self, target):
        return subprocess.run(["xclip", "-o", "-selection", "clipboard", "-target", target], capture_output=True,
                              timeout=10).stdout.decode()

    def test_yes_puts_the_text_on_the_clipboard_beyond_the_end(self):
        program = self.start_with_copy()
        self.request_close(program)
        self.answer(program, TO_CLIPBOARD_QUESTION, "y")
        self.wait_ended(program)
        self.assertIn("plain bold", self.pasted("UTF8_STRING"))
        rtf = self.pasted("text/rtf")
        self.assertTrue(rtf.startswith("{\\rtf1"), rtf)
        self.assertRegex(rtf, r"\\b[ \\]")
        self.assertIn("bold", self.pasted("text/html"))

    def test_no_leaves_the_clipboard_and_cancel_the_window(self):
        program = self.start_with_copy()
        copy("somebody else's")
        wait_until("the copy", lambda: "else" in program.cumulative().text())
        self.request_close(program)
        self.answer(program, TO_CLIPBOARD_QUESTION, "Escape")
        wait_until("the window again", lambda: xdotool("getactivewindow") == self.window(program))
        self.assertTrue(program.is_running())
        self.request_close(program)
        self.answer(program, TO_CLIPBOARD_QUESTION, "n")
        self.wait_ended(program)
        self.assertEqual(self.pasted("UTF8_STRING"), "somebody else's")
