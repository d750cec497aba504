"""One user's folder over several runs of the program, and the program's windows as the window manager has them."""

import os
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

from .close_window import close_window
from .conditions import wait_until
from .owners import empty_clipboard
from .program import Program

BINARY = os.environ.get("SNIPDECK_BINARY", "")
LINE_COUNT = 42
SAVE_QUESTION = "Text boxes have been altered by user."
TO_CLIPBOARD_QUESTION = "Save cumulative clipboard text box to"


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, timeout=10).stdout.strip()


class LivesTest(unittest.TestCase):
    """A home folder for one test; every run ends with it, and none may have complained."""

    def setUp(self):
        self.home = tempfile.TemporaryDirectory(prefix="snipdeck-home.")
        self.addCleanup(self.home.cleanup)
        self._running = []
        self.addCleanup(self._end_all)
        self.addCleanup(empty_clipboard)
        self.folder = Path(self.home.name, ".local/share/QM_Snipdeck")
        self.settings_path = self.folder / "QM_Snipdeck.ini"
        self.recovery_path = self.folder / "QM_Snipdeck.recovery"

    def start(self, first_focus="Text box 1"):
        program = Program(BINARY, self.home, first_focus)
        self._running.append(program)
        return program

    def environment(self):
        """That of a program whose only folder is the home folder."""
        kept = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        return kept | {"HOME": self.home.name, "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"]}

    def crash(self, program):
        """Kills the program as a crash would: it gets no chance to do anything."""
        self._running.remove(program)
        if program.is_running():
            os.kill(program.process_id(), signal.SIGKILL)
        program.end()

    def end(self, program):
        """The system ends the program, if it has not ended yet."""
        self._running.remove(program)
        self.assertEqual(program.end(), "")

    def _end_all(self):
        for program in list(self._running):
            self.end(program)

    def start_another(self):
        """A further start; returns its exit status and what it wrote."""
        done = subprocess.run([BINARY], env=self.environment(), capture_output=True, text=True, timeout=10)
        return done.returncode, done.stdout + done.stderr

    def write_settings(self, **lines):
        """A settings file that holds these lines (l1=..., l37=...) and 0 or nothing in the others."""
        texts = {6, 15, 19, 24, 27, 34}
        values = [str(lines.get(f"l{n}", "" if n in texts else 0)) for n in range(1, LINE_COUNT + 1)]
        self.write_settings_text("".join(value + "\r\n" for value in values))

    def write_settings_text(self, text):
        self.folder.mkdir(parents=True, exist_ok=True)
        self.settings_path.write_bytes(text.encode())

    def settings(self):
        """The lines of the settings file, counted from 1."""
        data = self.settings_path.read_bytes()
        self.assertTrue(data.endswith(b"\r\n"))
        lines = data.decode().split("\r\n")[:-1]
        self.assertEqual(len(lines), LINE_COUNT)
        return [None, *lines]

    def window(self, program):
        """The main window's number."""
        def found():
            ids = xdotool("search", "--onlyvisible", "--pid", program.process_id(), "--name", "^Storage folder: ")
            return ids.splitlines()
        return wait_until("the main window", found)[0]

    def request_close(self, program):
        """What the close box of the window does."""
        close_window(self.window(program))

    def answer(self, program, question, key):
        """Waits for the message that begins with `question` and presses a key in it."""
        self.wait_question(program, question)
        wait_until("the keyboard in the question",
                   lambda: xdotool("getactivewindow") != self.window(program) and xdotool("getactivewindow"))
        xdotool("key", "--clearmodifiers", key)

    def wait_question(self, program, question):
        def shown():
            return any(node.name().startswith(question) for node in program.tree.walk() if node.is_shown())
        wait_until(f"the question {question!r}", shown)

    def wait_ended(self, program):
        wait_until("the end of the program", lambda: not program.is_running())
