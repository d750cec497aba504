"""What was copied in the program can be pasted with its formats while it runs and after it has ended."""

import subprocess
import time

from harness.conditions import wait_until
from harness.hung_manager import HungManager
from harness.lives import xdotool
from harness.owners import copy
from harness.program import press
from harness.program_test import ProgramTest

# Qt waits up to 5 seconds for a manager when it ends.
QT_WAITS = 4


def paste(target):
    return subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", target], capture_output=True,
                          timeout=10, check=False).stdout.decode()


class AfterExit(ProgramTest):
    def _end(self):
        """It ends by itself here."""
        self.program.end()

    def test_a_copy_outlives_the_program(self):
        self.copy_and_end()
        copy("another program's text")
        wait_until("the other text", lambda: paste("UTF8_STRING") == "another program's text")

    def test_a_manager_that_hangs_does_not_hold_the_end(self):
        with HungManager():
            self.assertLess(self.copy_and_end(), QT_WAITS)

    def copy_and_end(self):
        """The program copies and ends; the copy can be pasted before and after. Returns the seconds that the end took."""
        copy("{\\rtf1\\ansi plain {\\b bold}}", "text/rtf")
        self.wait_for_box(1, "plain bold")
        press("ctrl+a", "ctrl+c")
        # The copy is captured like any other, which says that the program owns the clipboard.
        self.wait_for_box(2, "plain bold")
        self.check_pasted()
        press("alt+F4")
        # Ctrl+A is a key pressed in a box, so the program asks whether to save it.
        wait_until("the question", lambda: xdotool("getwindowname", xdotool("getactivewindow")) == "QM_Snipdeck")
        begin = time.monotonic()
        press("alt+n")
        wait_until("the end of the program", lambda: not self.program.is_running())
        taken = time.monotonic() - begin
        print(f"{self.id()}: ended within {taken:.2f} s")
        self.check_pasted()
        return taken

    def check_pasted(self):
        self.assertIn("\\b", paste("text/rtf"))
        self.assertIn("bold", paste("text/html"))
        self.assertEqual(paste("UTF8_STRING"), "plain bold")
