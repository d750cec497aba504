"""LibreOffice Writer pastes from the program while it runs and after it has ended, and the program shows what Writer copied.

Starting LibreOffice takes too long for every run of the tests, so this one is run by hand, with SNIPDECK_BINARY and
CLIPBOARD_OWNER set: scripts/private_display.sh python3 -B -m unittest flow_libreoffice, in tests/e2e."""

import os
import re
import subprocess
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

from harness.accessible import Atspi
from harness.conditions import wait_until
from harness.lives import BINARY, xdotool
from harness.owners import copy, empty_clipboard
from harness.program import Program, press

RTF = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Serif;}}\\f0 plain {\\b bold} {\\i slanted}\\par}"
START = 120  # seconds that LibreOffice may take


class Writer:
    """LibreOffice Writer with a document of its own."""

    def __init__(self, folder):
        self._profile = f"-env:UserInstallation=file://{folder}/profile"
        Path(folder, "paste.txt").write_text("", encoding="ascii")
        subprocess.run(["soffice", self._profile, "--headless", "--convert-to", "odt", "--outdir", folder,
                        f"{folder}/paste.txt"], check=True, capture_output=True, timeout=START)
        self.document = Path(folder, "paste.odt")
        self._process = subprocess.Popen(["soffice", self._profile, "--norestore", "--nologo", "--nofirststartwizard",
                                          "--writer", str(self.document)], stderr=subprocess.DEVNULL)
        self._window = wait_until("Writer's window", self._find, START)

    def _find(self):
        return xdotool("search", "--onlyvisible", "--name", "paste.odt").splitlines()[-1:]

    def press(self, *keys):
        def activate():
            xdotool("windowactivate", "--sync", self._window[0])
            return xdotool("getactivewindow") == self._window[0]
        wait_until("the keyboard in Writer", activate, 20)
        press(*keys)

    def saved(self):
        """The document's text with its styles, saved now."""
        before = self.document.stat().st_mtime_ns
        self.press("ctrl+s")
        wait_until("the saved document", lambda: self.document.stat().st_mtime_ns != before, 30)
        time.sleep(0.5)
        with zipfile.ZipFile(self.document) as parts:
            return parts.read("content.xml").decode()

    def end(self):
        self._process.terminate()
        self._process.wait(20)


def runs_in(content, style):
    """The texts whose automatic style has that property."""
    names = re.findall(r'<style:style style:name="(\w+)" style:family="text"[^>]*>(.*?)</style:style>', content)
    wanted = {name for name, body in names if style in body}
    return [text.strip() for name, text in re.findall(r'<text:span text:style-name="(\w+)">([^<]*)<', content)
            if name in wanted]


class LibreOffice(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="snipdeck-office.", ignore_cleanup_errors=True)
        self.addCleanup(self._folder.cleanup)
        self.addCleanup(empty_clipboard)
        self.program = Program(BINARY)
        self.addCleanup(self.program.end)
        self.writer = Writer(self._folder.name)
        self.addCleanup(self.writer.end)

    def check_pasted(self):
        """Writer pastes into its document, which has been emptied, and saves it."""
        # Writer gives what is pasted the formats that stood at the caret.
        self.writer.press("ctrl+a", "ctrl+m", "Delete")
        self.assertNotIn("slanted", self.writer.saved())
        self.writer.press("ctrl+v")
        content = self.writer.saved()
        self.assertEqual(runs_in(content, 'fo:font-weight="bold"'), ["bold"])
        self.assertEqual(runs_in(content, 'fo:font-style="italic"'), ["slanted"])

    def activate_program(self):
        window = xdotool("search", "--onlyvisible", "--pid", self.program.process_id(), "--name", "^Storage folder: ")
        xdotool("windowactivate", "--sync", window.splitlines()[0])
        wait_until("the keyboard in the program", lambda: xdotool("getactivewindow") == window.splitlines()[0])

    def picture(self, name):
        if os.environ.get("SNIPDECK_PICTURES"):
            subprocess.run(["import", "-window", "root", f"{os.environ['SNIPDECK_PICTURES']}/{name}.png"], check=False)

    def test_both_ways(self):
        copy(RTF, "text/rtf")
        wait_until("the capture", lambda: self.program.box(1).text().strip() == "plain bold slanted")
        self.activate_program()
        press("ctrl+a", "ctrl+c")
        wait_until("our own copy", lambda: self.program.box(2).text().strip() == "plain bold slanted")
        self.check_pasted()
        self.picture("writer")
        self.writer.press("ctrl+a", "ctrl+c")
        wait_until("Writer's copy", lambda: "slanted" in self.program.box(3).text(), 30)
        box = self.program.box(3)
        self.assertEqual(box.attributes_at(box.text().index("bold") + 1).get("weight"), "bold")
        self.check_formats_of_writer()
        self.activate_program()
        press("ctrl+a", "ctrl+c")
        wait_until("our own copy again", lambda: self.program.box(4).text().strip() == "plain bold slanted")
        begin = time.monotonic()
        press("alt+F4")
        wait_until("the question", lambda: xdotool("search", "--onlyvisible", "--pid", self.program.process_id(),
                                                   "--name", "QM_Snipdeck") or not self.program.is_running())
        if self.program.is_running():
            press("alt+n")
        wait_until("the end", lambda: not self.program.is_running())
        print(f"ended within {time.monotonic() - begin:.2f} s")
        self.check_pasted()

    def check_formats_of_writer(self):
        """The list of formats reads what Writer offers; the window answers meanwhile."""
        self.activate_program()
        press("F11")
        wait_until("the window", lambda: xdotool("getwindowname", xdotool("getactivewindow")).startswith("Current"))
        press("alt+c", "f")
        slowest = 0
        deadline = time.monotonic() + 8
        while time.monotonic() < deadline:
            slowest = max(slowest, self.program.answer_time())
            time.sleep(0.02)
        self.picture("formats")
        cells = [node.name() for node in self.program.tree.walk() if node.role() in (Atspi.Role.TABLE_CELL, Atspi.Role.TREE_ITEM)]
        print(f"longest answer while Writer's formats were read: {slowest * 1000:.0f} ms; {cells}")
        self.assertIn("Rich Text Format", cells)
        press("Escape")
