"""LibreOffice Calc and Chromium copy; the copy is captured, and both windows that show the clipboard show it.

Starting them takes too long for every run of the tests, so this one is run by hand, with SNIPDECK_BINARY and
CLIPBOARD_OWNER set: scripts/private_display.sh python3 -B -m unittest flow_real_owners, in tests/e2e."""

import subprocess
import tempfile
import time
from pathlib import Path

import flow_clipboard_windows as windows
from flow_libreoffice import START
from harness.conditions import TimedOut, wait_until
from harness.lives import xdotool
from harness.owners import copy
from harness.program import press
from harness.program_test import ProgramTest

MARK = "1234.5"  # in both copies

PAGE = """<!DOCTYPE html><meta charset="utf-8"><title>page</title>
<p>plain <b>bold</b> <a href="https://example.org/there">a link</a></p>
<ul><li>first item<li>second item</ul>
<table border="1"><tr><td>north</td><td>1234.5</td></tr><tr><td>south</td><td>Grün</td></tr></table>"""

SHEET = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:automatic-styles><style:style style:name="b" style:family="table-cell">
<style:text-properties fo:font-weight="bold"/></style:style></office:automatic-styles>
<office:body><office:spreadsheet><table:table table:name="Sheet">
<table:table-row>
<table:table-cell table:style-name="b" office:value-type="string"><text:p>bold</text:p></table:table-cell>
<table:table-cell office:value-type="string"><text:p>plain</text:p></table:table-cell>
</table:table-row>
<table:table-row>
<table:table-cell office:value-type="string"><text:p>Grün</text:p></table:table-cell>
<table:table-cell office:value-type="float" office:value="1234.5"><text:p>1234.5</text:p></table:table-cell>
</table:table-row>
</table:table></office:spreadsheet></office:body></office:document>"""

FORMAT_COLUMNS = 4
TABLE_MARKS = "\ufdd0\ufdd1"  # before each cell, and after the table; with the formats of the text before them
CELL_COUNT = 4
WATCHED = 1.0  # seconds that the program is asked for answers after each step
PROTOCOL = {"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"}  # targets that are no contents
LONGEST_ANSWER = 1.0  # seconds; an owner that is waited for takes as long


class Partner:
    """Another program with one window, known by a part of its title."""

    def __init__(self, title, *command):
        self._process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._window = wait_until(title, lambda: xdotool("search", "--onlyvisible", "--name", title).splitlines(),
                                  START)[-1]

    def press(self, *keys):
        def activate():
            xdotool("windowactivate", "--sync", self._window)
            return xdotool("getactivewindow") == self._window
        wait_until("the keyboard in the other program", activate, 20)
        press(*keys)

    def end(self):
        self._process.terminate()
        self._process.wait(20)


class RealOwners(ProgramTest):
    command = windows.ClipboardWindows.command
    labels = windows.ClipboardWindows.labels
    shown = windows.ClipboardWindows.shown
    view = windows.ClipboardWindows.view

    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory(prefix="snipdeck-owner.", ignore_cleanup_errors=True)
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.answers = []
        copy("in the box")
        self.wait_for_box(1, "in the box")

    def start(self, name, contents, *command):
        """Starts a program with a file that has these contents."""
        path = Path(self.folder, name)
        path.write_text(contents, encoding="utf-8")
        partner = Partner(path.stem, *command, str(path))
        self.addCleanup(partner.end)
        return partner

    def wait(self, what, condition):
        """Waits, and meanwhile and for a while asks the program for answers."""
        end = time.monotonic() + WATCHED

        def asked():
            self.answers.append((self.program.answer_time(), what))
            return time.monotonic() > end and condition()
        return wait_until(what, asked, 30)

    def copied(self, partner, *keys):
        """The box that has captured what these keys copy; the other program may lose keys while it is starting."""
        def captured():
            return next((self.program.box(number) for number, text in enumerate(self.program.texts(), 1)
                         if MARK in text), None)
        for _ in range(4):
            partner.press(*keys)
            try:
                return wait_until("the capture", captured)
            except TimedOut:
                continue
        return self.fail("no copy was captured")

    def activate_program(self):
        window = xdotool("search", "--onlyvisible", "--pid", self.program.process_id(), "--name", "^Storage folder: ")
        xdotool("windowactivate", "--sync", window.splitlines()[0])
        self.wait("the keyboard in box 1", lambda: self.program.box(1).is_focused())

    def open(self, key):
        press(key)
        self.wait(f"the window of {key}",
                  lambda: xdotool("getwindowname", xdotool("getactivewindow")) == windows.TITLE)

    def check_formatted(self, node, formats):
        """`formats` names a text and one of its attributes; no other text has that attribute."""
        text = node.text()
        for words, name, value in formats:
            having = [character for at, character in enumerate(text) if node.attributes_at(at).get(name) == value]
            self.assertEqual("".join(having).strip(TABLE_MARKS), words)

    def check(self, box, formats, basic, plain, listed):
        """What the boxes and both windows make of the copy."""
        captured = box.text()
        self.assertEqual(captured.count(TABLE_MARKS[0]), CELL_COUNT)
        self.check_formatted(box, formats)
        self.activate_program()
        press("ctrl+a")
        self.check_view_and_paste(captured, formats, basic, plain)
        self.wait("the retrieved text", lambda: self.program.box(1).text() == captured)
        self.check_formatted(self.program.box(1), formats)
        self.check_show_clipboard(captured, formats, plain, listed)
        answer, step = max(self.answers)
        print(f"{self.id()}: longest of {len(self.answers)} answers {answer * 1000:.0f} ms, waiting for {step}")
        self.assertLess(answer, LONGEST_ANSWER)

    def check_view_and_paste(self, captured, formats, basic, plain):
        self.open("F6")
        for style, text in [("all formats", captured), ("basic formats", basic), ("no formats", plain)]:
            name = f"Clipboard text, {style}"
            self.wait(name, lambda: self.view(name))
            self.assertEqual(self.view(name).strip(), text)
            if style != "no formats":
                self.check_formatted(next(node for node in self.shown(windows.TEXT) if node.name() == name), formats)
            self.command("t")
        # Three toggles lead back to all formats.
        self.wait("all formats again", lambda: "full RTF" in self.labels())
        self.command("r")

    def check_show_clipboard(self, captured, formats, plain, listed):
        self.open("F11")
        self.wait("the contents", lambda: self.view("Contents of the clipboard") == captured)
        self.check_formatted(next(node for node in self.shown(windows.TEXT)
                                  if node.name() == "Contents of the clipboard"), formats)
        self.assertEqual(self.labels().count("RTF text"), 2)  # the main window's and this one's
        self.command("f")
        rows = self.wait("all formats to be read", self.formats_read)
        print(f"{self.id()}: {rows}")
        names = [name for _, name, _, _ in rows]
        self.assertEqual(len(names), len(set(names)))
        self.assertLessEqual(listed, set(names))
        self.assertFalse(PROTOCOL & set(names))
        self.wait("the chosen format", lambda: (self.view("Contents of the chosen format") or "").strip() == plain)
        press("Escape")

    def formats_read(self):
        """The rows of the list of formats, when each says how long reading it took."""
        lists = [node for node in self.program.tree.walk() if node.name() == "Formats of the clipboard"]
        cells = [node.name() for node in lists[0].walk() if node.role() in windows.CELLS] if lists else []
        rows = [cells[at:at + FORMAT_COLUMNS] for at in range(0, len(cells), FORMAT_COLUMNS)]
        return rows if rows and all(row[-1].endswith(" ms") for row in rows) else None

    def test_cells_of_calc(self):
        calc = self.start("sheet.fods", SHEET, "soffice", f"-env:UserInstallation=file://{self.folder}/profile",
                          "--norestore", "--nologo", "--nofirststartwizard", "--calc")
        cells = f"bold\tplain\nGrün\t{MARK}"
        self.check(self.copied(calc, "ctrl+Home", "ctrl+shift+End", "ctrl+c"),
                   [("bold", "weight", "bold")], cells, cells,
                   {"Text (Unicode)", "Text", "text/html", "Rich Text Format", "Bitmap Picture"})

    def test_page_of_chromium(self):
        browser = self.start("page.html", PAGE, "chromium", "--no-sandbox", "--no-first-run", "--disable-gpu",
                             "--password-store=basic", f"--user-data-dir={self.folder}/profile")
        table = f"north\t{MARK}\nsouth\tGrün"
        self.check(self.copied(browser, "ctrl+a", "ctrl+c"),
                   [("bold", "weight", "bold"), ("a link", "underline", "single")],
                   f"plain bold a link\n•\tfirst item\n•\tsecond item\n{table}",
                   f"plain bold a link\n\nfirst item\nsecond item\n{table}",
                   {"Text (Unicode)", "Text", "text/html"})
