"""Boxes and texts go to files and come back, through the desktop's own dialogs."""

import os
import subprocess
import time

from harness.accessible import Atspi
from harness.conditions import wait_equal, wait_until
from harness.owners import copy
from harness.program import press
from harness.program_test import ProgramTest


class Files(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home = self.program.home.name

    def _wait_for_dialog(self, title):
        """The dialog of that title, as soon as it has the keyboard."""
        def active():
            return [node for node in self.program.tree.children() if node.name() == title and
                    node.has_state(Atspi.StateType.ACTIVE)]
        return wait_until(f"the dialog {title}", active)[0]

    def _answer(self, title, *keys):
        self._wait_for_dialog(title)
        press(*keys)
        wait_until(f"the end of {title}",
                   lambda: all(node.name() != title for node in self.program.tree.children()))

    def _type_name(self, title, name):
        self._wait_for_dialog(title)
        press("alt+n")
        subprocess.run(["xdotool", "type", "--clearmodifiers", name], check=True, timeout=10)
        self._answer(title, "Return")

    def _path(self, name):
        return os.path.join(self.home, name)

    def _read(self, name):
        with open(self._path(name), "rb") as file:
            return file.read()

    def test_boxes_are_saved_and_loaded(self):
        copy(b"{\\rtf1 kept {\\b bold} text}", "text/rtf")
        self.wait_for_box(1, "kept bold text")
        press("ctrl+s")
        self._answer("QM_Snipdeck", "Return")
        folder = self._path(".local/share/QM_Snipdeck")
        self.assertEqual(len([name for name in os.listdir(folder) if name.startswith("QM_Snipdeck_Text_")]), 12)
        copy("second")
        self.wait_for_box(2, "second")
        press("x")
        wait_until("a changed box", lambda: "x" in self.program.box(1).text() + self.program.box(2).text())
        press("ctrl+l")
        self._answer("QM_Snipdeck", "alt+y")
        self.wait_for_box(1, "kept bold text")
        self.wait_for_box(2, "")
        self.assertEqual(self.program.box(1).attributes_at(6).get("weight"), "bold")

    def test_copies_made_while_a_file_is_loaded_come_after_it(self):
        line = b"a line of a text that takes a while to load\\par\n"
        with open(self._path("long.rtf"), "wb") as file:
            file.write(b"{\\rtf1 " + line * 400_000 + b"}")
        press("ctrl+y")
        wait_until("the cumulative view", self.program.cumulative().is_shown)
        press("ctrl+g")
        self._wait_for_dialog("Load file into text")
        press("alt+n")
        subprocess.run(["xdotool", "type", "--clearmodifiers", self._path("long.rtf")], check=True, timeout=10)
        press("Return")
        wait_until("the dialog that shows how far the loading is",
                   lambda: any(node.name() == "QM_Snipdeck" for node in self.program.tree.children()), 30)
        copies = ["first copy", "second copy", "third copy"]
        for text in copies:
            copy(text)
            time.sleep(0.1)
        wait_until("the copies", lambda: self.program.texts()[:3] == copies, 60)
        text = self.program.cumulative().text()
        self.assertEqual(text.count("a line of a text"), 400_000)
        self.assertTrue(text.endswith("to load" + "".join(text + "\n" for text in copies)), text[-80:])

    def test_texts_are_exported_appended_to_and_loaded(self):
        copy(b"{\\rtf1 some {\\b bold} text}", "text/rtf")
        self.wait_for_box(1, "some bold text")
        press("F5")
        wait_until("the large view", self.program.large_view().is_shown)
        press("ctrl+b")
        self._type_name("Specify a name for file", self._path("saved"))
        wait_until("the file, with the ending of its kind", lambda: os.path.exists(self._path("saved.rtf")))
        self.assertIn(b"\\b", self._read("saved.rtf"))
        before = self._read("saved.rtf")
        press("ctrl+d")
        self._answer("Specify file to append text to", "Return")
        self._answer("QM_Snipdeck", "alt+n")
        wait_until("the separator", lambda: b"+-" * 32 + b"+" in self._read("saved.rtf"))
        self.assertGreater(len(self._read("saved.rtf")), 2 * len(before) - 200)

        press("F5", "ctrl+y")
        wait_until("the cumulative view", self.program.cumulative().is_shown)
        press("ctrl+g")
        self._answer("Load file into text", "Return")
        expected = "some bold text\n\n" + "+-" * 32 + "+\n\nsome bold text\n"
        wait_equal("the cumulative text", expected, self.program.cumulative().text)
        press("ctrl+t")
        self._type_name("Save cumulative clipboard text to file", self._path("cumulative.txt"))
        wait_until("the saved text", lambda: os.path.exists(self._path("cumulative.txt")))
        self.assertEqual(self._read("cumulative.txt").decode().replace("\r\n", "\n"), expected)
