"""The windows that show the clipboard: what they show of other programs' copies, and what the user takes out of them."""

import subprocess

from harness.accessible import TEXT, Atspi
from harness.conditions import wait_equal, wait_until
from harness.lives import xdotool
from harness.owners import Owner, copy
from harness.program import press
from harness.program_test import ProgramTest

RTF = r"{\rtf1\ansi\deff0{\fonttbl{\f0 Liberation Serif;}}\f0\fs24 plain {\b bold} {\i slanted}\par}"
TITLE = "Current contents of Windows clipboard"
CELLS = (Atspi.Role.TABLE_CELL, Atspi.Role.TREE_ITEM)
LONGEST_ANSWER = 0.5  # seconds; an owner that is waited for takes one


def pasted(target):
    done = subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", target], capture_output=True,
                          timeout=10, check=False)
    return done.stdout.decode()


class ClipboardWindows(ProgramTest):
    def open(self, key):
        press(key)
        wait_until("the window", lambda: xdotool("getwindowname", xdotool("getactivewindow")) == TITLE)

    def close(self):
        press("Escape")
        wait_until("the main window", lambda: xdotool("getwindowname", xdotool("getactivewindow")) != TITLE)

    def command(self, letter):
        """Chooses an entry of the window's menu."""
        press("alt+c", letter)

    def shown(self, role):
        return [node for node in self.program.tree.walk() if node.role() == role and node.is_shown()]

    def view(self, name):
        """The text of the view of that name, when it is shown."""
        return next((node.text() for node in self.shown(TEXT) if node.name() == name), None)

    def labels(self):
        return [node.description() for node in self.shown(Atspi.Role.LABEL)]

    def wait_text(self, name, text):
        wait_equal(name, text, lambda: (self.view(name) or "").strip())

    def test_text_is_retrieved_in_each_of_three_styles(self):
        copy("in the box")
        self.wait_for_box(1, "in the box")
        with Owner("UTF8_STRING:the plain variant", f"text/rtf:{RTF}"):
            self.wait_for_kind("RTF text")
            for style, (name, text) in enumerate([("all formats", "plain bold slanted"),
                                                  ("basic formats", "plain bold slanted"),
                                                  ("no formats", "the plain variant")]):
                press("ctrl+a")
                self.open("F6")
                for _ in range(style):
                    self.command("t")
                self.wait_text(f"Clipboard text, {name}", text)
                self.command("r")
                wait_equal("the box last worked in", text, lambda: self.program.box(1).text().strip())
                weight = self.program.box(1).attributes_at(7).get("weight")
                self.assertEqual(weight == "bold", style < 2)

    def test_each_kind_is_named(self):
        picture = subprocess.run(["convert", "-size", "64x48", "gradient:", "png:-"], check=True, capture_output=True)
        copy(picture.stdout, "image/png")
        self.wait_for_kind("image")
        self.open("F11")
        wait_until("the picture", lambda: any(node.description() == "64 x 48 pixels"
                                              for node in self.program.tree.walk() if node.name() == "Picture"))
        self.assertIn("image", self.labels())
        self.close()
        self.open("F6")
        self.wait_text("Clipboard text, all formats",
                       'Windows clipboard contains  an image \n\nClick on "All types" above to view.')
        self.close()
        copy("file:///tmp/one\r\nfile:///tmp/two%20words\r\n", "text/uri-list")
        self.wait_for_kind("file/folder names")
        self.open("F11")
        self.wait_text("Contents of the clipboard", "/tmp/one\n/tmp/two words")
        self.close()

    def test_a_copy_is_added_to_what_is_there(self):
        with Owner("UTF8_STRING:plain bold slanted", "application/x-own:raw"):
            self.wait_for_kind("plain text")
            self.open("F11")
            self.wait_text("Contents of the clipboard", "plain bold slanted")
            press("ctrl+a", "ctrl+c")
            wait_until("the added format", lambda: pasted("text/rtf").startswith("{\\rtf"))
            self.assertEqual(pasted("application/x-own"), "raw")
            self.assertEqual(pasted("UTF8_STRING"), "plain bold slanted")
        self.close()

    def test_every_format_is_listed(self):
        with Owner("UTF8_STRING:text", "application/x-own:raw\x01bytes", "text/richtext:mail"):
            self.wait_for_kind("plain text")
            self.open("F11")
            self.command("f")
            cells = []

            def all_read():
                cells[:] = [node.name() for node in self.program.tree.walk() if node.role() in CELLS]
                return any(cell.startswith("text/richtext: ") for cell in cells)

            wait_until("every format to be read", all_read)
            for name in ("13", "Text (Unicode)", "application/x-own", "Rich Text Format"):
                self.assertIn(name, cells)
            press("Home", "Down", "Down")
            wait_until("its bytes", lambda: "72 61 77 01" in (self.view("Contents of the chosen format") or ""))
            self.close()

    def test_an_owner_that_hangs_does_not_stop_the_window(self):
        longest = 0.0
        with Owner("UTF8_STRING:x", "--mode", "hang"):
            for key in ("F6", "F11"):
                press(key)

                def opened():
                    nonlocal longest
                    longest = max(longest, self.program.answer_time())
                    return xdotool("getwindowname", xdotool("getactivewindow")) == TITLE

                wait_until("the window", opened)
                self.close()
        print(f"{self.id()}: longest answer {longest * 1000:.0f} ms")
        self.assertLess(longest, LONGEST_ANSWER)
