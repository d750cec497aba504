"""Other programs that copy."""

import os
import subprocess


def copy(data, target="UTF8_STRING"):
    """xclip copies `data` under one target and serves it until somebody else copies."""
    if isinstance(data, str):
        data = data.encode()
    subprocess.run(["xclip", "-selection", "clipboard", "-target", target], input=data, check=True, timeout=10,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Owner:
    """clipboard_owner with its arguments; in a with block it lives until the block ends."""

    def __init__(self, *arguments):
        self._process = subprocess.Popen([os.environ["CLIPBOARD_OWNER"], *arguments], stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        self.wait_taken()
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.communicate()

    def wait_taken(self):
        """Returns when the next copy has been made."""
        self._wait_for("owns", "lost")

    def wait_given(self, target):
        """Returns when somebody has been given this target; only with --report."""
        self._wait_for(f"gave {target}\n")

    def _wait_for(self, *beginnings):
        for line in self._process.stdout:
            if line.startswith(beginnings):
                return
        raise AssertionError(f"clipboard_owner ended before it printed {beginnings}")


def empty_clipboard():
    """Whoever owns the clipboard loses it to an owner that ends at once."""
    with Owner("NOTHING:"):
        pass
