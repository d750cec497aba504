"""The text editor as its user meets it: written in, saved, closed, and found again after a crash."""

import subprocess
import unittest
from pathlib import Path

from harness.accessible import TEXT, Atspi
from harness.conditions import wait_equal, wait_until
from harness.lives import LivesTest, xdotool
from harness.program import press

EDITOR_TEXT = "Text of the editor"


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True, timeout=30)


class Editor(LivesTest):
    def setUp(self):
        super().setUp()
        self.documents = Path(self.home.name, "Documents")
        self.documents.mkdir()

    def shown(self, program, name, role=None):
        """The object of that name that can be seen now; None where there is none."""
        for node in program.tree.walk():
            if node.name() == name and node.is_shown() and (role is None or node.role() == role):
                return node
        return None

    def editor(self, program):
        """The editor's text, as soon as it has the keyboard."""
        node = wait_until("the editor", lambda: self.shown(program, EDITOR_TEXT, TEXT), 20)
        wait_until("the keyboard in the editor", node.is_focused)
        return node

    def wait_window(self, title):
        wait_until(f"the window {title!r}", lambda: xdotool("getactivewindow", "getwindowname") == title)

    def choose_file(self, title, path):
        self.wait_window(title)
        press("alt+n")
        type_text(str(path))
        press("Return")

    def keyboard(self, layout):
        """A layout that has the key: xdotool takes back at once what it lends to a key that is missing."""
        subprocess.run(["setxkbmap", layout], check=True, timeout=10)

    def wait_closed(self, program):
        wait_until("the end of the editor", lambda: self.shown(program, EDITOR_TEXT) is None)

    def test_written_saved_and_opened_again(self):
        program = self.start()
        press("ctrl+n")
        text = self.editor(program)
        self.wait_window("File: Untitled.rtf")
        type_text('He said "don\'t"')
        wait_equal("typographic marks", "He said \u201cdon\u2019t\u201d", text.text)
        press("Left", "alt+s")
        wait_equal("two letters changed", "He said \u201cdon\u2019\u201dt", text.text)
        press("Left", "alt+s")
        wait_equal("two letters changed and changed back", "He said \u201cdon\u2019t\u201d", text.text)
        self.keyboard("de")
        press("dead_acute", "e")
        wait_equal("a composed letter", "He said \u201cdon\u2019t\u201d\u00e9", text.text)
        self.keyboard("us")

        path = self.documents / "said.txt"
        press("ctrl+s")
        self.choose_file("Save text to disk", path)
        self.wait_window(f"File :  {path}")
        self.assertEqual(path.read_text(), "He said \u201cdon\u2019t\u201d\u00e9")

        type_text(" not kept")
        press("ctrl+n")
        self.wait_window("Closing altered file...")
        press("alt+n")
        self.wait_window("Untitled.rtf")
        press("ctrl+o")
        self.choose_file("Load file from disk", path)
        self.wait_window(str(path))
        wait_equal("the text of the file", path.read_text(), text.text)
        press("alt+F4")
        self.wait_closed(program)
        wait_until("the keyboard in the main window", program.box(1).is_focused)
        self.end(program)

    def test_topical_notes_close_only_after_an_answer(self):
        notes = self.documents / "notes.rtf"
        notes.write_bytes(rb"{\rtf1 {\b old}}")
        self.write_settings(l3=15000, l4=11250, l27=notes)
        program = self.start()
        press("F1")
        text = self.editor(program)
        self.wait_window(f"File: {notes}")
        wait_equal("the notes", "old", text.text)
        type_text("new ")
        press("alt+F4")
        self.wait_window("Closing altered file...")
        press("Escape")
        self.wait_window(f"File: {notes}")
        press("alt+F4")
        self.wait_window("Closing altered file...")
        press("alt+s")
        self.wait_closed(program)
        self.assertIn(b"new ", notes.read_bytes())
        self.end(program)

    def test_found_again_after_a_crash(self):
        program = self.start()
        press("ctrl+n")
        self.editor(program)
        type_text("nearly lost")
        wait_until("the text in the recovery file", lambda: self._is_kept(b"nearly lost"))
        self.crash(program)
        program = self.start(first_focus=None)
        self.answer(program, "The program ended while this text was changed", "alt+y")
        text = self.editor(program)
        wait_equal("the text of before", "nearly lost", text.text)
        self.wait_window("File: Untitled.rtf")
        press("alt+F4")
        self.wait_window("Closing altered file...")
        press("alt+n")
        self.wait_closed(program)
        wait_until("an end of the recovery file", lambda: not self._recovery().exists())
        self.end(program)

    def _recovery(self):
        return self.folder / "QM_Snipdeck.editor-recovery"

    def _is_kept(self, words):
        return self._recovery().exists() and words in self._recovery().read_bytes()


if __name__ == "__main__":
    unittest.main()
