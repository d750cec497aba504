"""What is copied arrives as what it is: formatted where it was formatted, and only named where it is no text."""

import subprocess

from harness.conditions import wait_until
from harness.owners import Owner, copy
from harness.program_test import ProgramTest

RTF = r"{\rtf1\ansi\deff0{\fonttbl{\f0 Liberation Serif;}}\f0\fs24 plain {\b bold} {\i slanted}\par}"
HTML = "<p>plain <b>bold</b> <i>slanted</i></p>"


def picture():
    return subprocess.run(["convert", "-size", "64x64", "gradient:", "png:-"], check=True, capture_output=True).stdout


class Kinds(ProgramTest):
    def assert_formatted(self, number):
        box = self.program.box(number)
        wait_until("the formatted text", lambda: box.text().strip() == "plain bold slanted")
        for node in (box, self.program.cumulative()):
            at = node.text().rindex("plain")
            plain, bold, slanted = (node.attributes_at(at + offset) for offset in (1, 7, 12))
            self.assertEqual([run.get("weight") == "bold" for run in (plain, bold, slanted)], [False, True, False])
            self.assertEqual([run.get("style") == "italic" for run in (plain, bold, slanted)], [False, False, True])

    def test_rich_text_arrives_formatted(self):
        with Owner("UTF8_STRING:the plain variant", f"text/rtf:{RTF}"):
            self.wait_for_kind("RTF text")
            self.assert_formatted(1)

    def test_a_browser_s_selection_arrives_formatted(self):
        with Owner(f"text/html:{HTML}", "UTF8_STRING:plain bold slanted", "text/plain:plain bold slanted"):
            self.wait_for_kind("RTF text")
            self.assert_formatted(1)

    def test_plain_text_keeps_its_lines_and_its_letters(self):
        copy("first line\nsecond: ä € 漢字 😀")
        self.wait_for_kind("plain text")
        self.wait_for_box(1, "first line\nsecond: ä € 漢字 😀")

    def test_a_long_text_arrives_whole(self):
        text = "".join(f"line {n} of a long text\n" for n in range(40000))
        copy(text)
        wait_until("the whole text", lambda: self.program.box(1).length() == len(text), 20)

    def test_an_image_and_a_file_list_are_only_named(self):
        copy("before")
        self.wait_for_box(1, "before")
        copy(picture(), "image/png")
        self.wait_for_kind("image")
        copy("file:///tmp/one\r\nfile:///tmp/two\r\n", "text/uri-list")
        self.wait_for_kind("file/folder names")
        copy("after")
        self.wait_for_box(2, "after")
        self.assertEqual(self.program.texts()[2:], [""] * 10)
        self.assertEqual(self.program.cumulative().text(), "before\nafter\n")

    def test_a_password_is_not_captured(self):
        with Owner("x-kde-passwordManagerHint:secret", "UTF8_STRING:my password"):
            copy("after")
            self.wait_for_box(1, "after")
        self.assertNotIn("password", self.program.cumulative().text())
