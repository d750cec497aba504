"""The real program, started with an empty home folder."""

import os
import subprocess
import tempfile
import time

from . import accessible
from .conditions import wait_until

BOX_COUNT = 12


def press(*keys):
    """Presses keys, one after the other, in the window that has the keyboard."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True, timeout=10)


def click(node):
    """Clicks into the middle of an accessible object."""
    x, y = node.middle()
    subprocess.run(["xdotool", "mousemove", "--sync", str(x), str(y), "click", "1"], check=True, timeout=10)


class Program:
    """A running qm_snipdeck."""

    def __init__(self, binary, home=None, first_focus="Text box 1"):
        """`home` is a TemporaryDirectory that outlives this run; `first_focus` is the text that gets the
        keyboard; None where something else does."""
        self._own_home = None if home else tempfile.TemporaryDirectory(prefix="snipdeck-home.")
        self.home = home or self._own_home
        self._errors = tempfile.TemporaryFile()
        environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        environment |= {"HOME": self.home.name, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_FORCE_STDERR_LOGGING": "1",
                        "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"]}
        self._process = subprocess.Popen([binary], env=environment, stderr=self._errors)
        self.tree = accessible.application(self._process.pid)
        self._nodes = {}
        # The program begins to watch the clipboard when its window becomes the active one.
        if first_focus:
            wait_until(f"the keyboard in {first_focus}", lambda: self._text(first_focus).is_focused())

    def box(self, number):
        return self._text(f"Text box {number}")

    def cumulative(self):
        return self._text("Cumulative clipboard text box")

    def large_view(self):
        return self._text("Large view")

    def kind(self):
        """What the format label says about the last copy."""
        return self._kind_label().description()

    def texts(self):
        """The texts of the twelve boxes."""
        return [self.box(number).text() for number in range(1, BOX_COUNT + 1)]

    def answer_time(self):
        """Seconds until the window's thread answers one question."""
        label = self._kind_label()
        begin = time.monotonic()
        label.description()
        return time.monotonic() - begin

    def is_running(self):
        return self._process.poll() is None

    def process_id(self):
        return self._process.pid

    def end(self):
        """Ends the program; returns what it wrote to its error output."""
        self._process.terminate()
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        if self._own_home:
            self._own_home.cleanup()
        with self._errors as errors:
            errors.seek(0)
            return errors.read().decode(errors="replace")

    def _text(self, name):
        return self._node(name, accessible.TEXT)

    def _kind_label(self):
        # The caption before it has the same name, and comes first.
        return self._node("Format", accessible.LABEL, 1)

    def _node(self, name, role, index=0):
        # The controls live as long as the window, so each is looked up once, and all of them in one walk.
        if (name, role) not in self._nodes:
            wait_until(f'"{name}" in the window', lambda: (name, role) in self._look_around())
        return self._nodes[name, role][index]

    def _look_around(self):
        self._nodes = {}
        for node in self.tree.walk():
            self._nodes.setdefault((node.name(), node.role()), []).append(node)
        return self._nodes
