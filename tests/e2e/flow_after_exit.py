"""What was copied in the program can be pasted with its formats while it runs and after it has ended."""

import subprocess
import time

from harness.conditions import wait_until
from harness.owners import copy
from harness.program import press
from harness.program_test import ProgramTest


def paste(target):
    return subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", target], capture_output=True,
                          timeout=10, check=False).stdout.decode()


class AfterExit(ProgramTest):
    def _end(self):
        """It ends by itself here."""
        self.program.end()

    def test_a_copy_outlives_the_program(self):
        copy("{\\rtf1\\ansi plain {\\b bold}}", "text/rtf")
        self.wait_for_box(1, "plain bold")
        press("ctrl+a", "ctrl+c")
        # The copy is captured like any other, which says that the program owns the clipboard.
        self.wait_for_box(2, "plain bold")
        self.check_pasted()
        begin = time.monotonic()
        press("alt+F4")
        wait_until("the end of the program", lambda: not self.program.is_running())
        print(f"{self.id()}: ended within {time.monotonic() - begin:.2f} s")
        self.check_pasted()
        copy("another program's text")
        wait_until("the other text", lambda: paste("UTF8_STRING") == "another program's text")

    def check_pasted(self):
        self.assertIn("\\b", paste("text/rtf"))
        self.assertIn("bold", paste("text/html"))
        self.assertEqual(paste("UTF8_STRING"), "plain bold")
