"""The editor prints: over a queue of CUPS, whose printer writes files."""

import subprocess
import unittest
from pathlib import Path

from harness.accessible import TEXT, Atspi
from harness.conditions import wait_equal, wait_until
from harness.lives import LivesTest, xdotool
from harness.printers import QUEUE, PrintSystem, pages_of
from harness.program import press

PAGES = ["sheet one", "sheet two", "sheet three", "sheet four"]
PROBLEM = "There was a problem printing to your printer!"


class Printing(LivesTest):
    def setUp(self):
        super().setUp()
        self.printers = PrintSystem()
        self.addCleanup(self.printers.end)
        notes = self.folder.parent / "notes.rtf"
        notes.parent.mkdir(parents=True, exist_ok=True)
        notes.write_text("{\\rtf1\\paperw11906\\paperh16838 " + "\\par\\page ".join(PAGES) + "}")
        self.write_settings(l3=15000, l4=11250, l27=notes)

    def open_notes(self):
        self.program = self.start()
        press("F1")
        text = wait_until("the editor", lambda: self.found("Text of the editor", TEXT))
        wait_until("the keyboard in the editor", text.is_focused)

    def found(self, name, role):
        for node in self.program.tree.walk():
            if node.name() == name and node.role() == role and node.is_shown():
                return node
        return None

    def open_dialog(self):
        press("ctrl+p")
        wait_until("the print dialog", lambda: xdotool("getactivewindow", "getwindowname") == "Print")

    def show_options(self):
        press("alt+o")
        wait_until("the options", lambda: self.found("Copies:", Atspi.Role.SPIN_BUTTON))

    def enter(self, name, value, index=0):
        """Types a number into a field of the dialog."""
        fields = [node for node in self.program.tree.walk()
                  if node.name() == name and node.role() == Atspi.Role.SPIN_BUTTON and node.is_shown()]
        x, y = fields[index].middle()
        subprocess.run(["xdotool", "mousemove", str(x - 8), str(y), "click", "--repeat", "2", "1"], check=True, timeout=10)
        press("ctrl+a")
        subprocess.run(["xdotool", "type", str(value)], check=True, timeout=10)

    def choose_range(self, first, last):
        x, y = self.found("Pages from", Atspi.Role.RADIO_BUTTON).corner()
        subprocess.run(["xdotool", "mousemove", str(x + 6), str(y + 6), "click", "1"], check=True, timeout=10)
        self.enter("Print range", first)
        self.enter("Print range", last, 1)

    def wait_job(self, number):
        wait_until(f"job {number}", lambda: len(self.printers.jobs()) >= number, 20)
        return self.printers.jobs()[number - 1]

    def status(self):
        return [node.name() for node in self.program.tree.walk() if node.name().startswith("Pages: ")]

    def wait_problem(self):
        wait_until("the message", lambda: any(node.name().startswith(PROBLEM) for node in self.program.tree.walk()), 20)
        press("Return")
        wait_until("the editor again", lambda: xdotool("getactivewindow", "getwindowname").startswith("File: "))

    def test_pages_copies_and_order(self):
        self.printers.add_queue()
        self.open_notes()
        self.open_dialog()
        self.assertIsNotNone(self.found(QUEUE, Atspi.Role.COMBO_BOX))
        press("Return")
        job = self.wait_job(1)
        self.assertEqual(pages_of(job), PAGES)
        title, copies, _ = self.printers.ticket(job)
        self.assertEqual((title, copies), ("notes.rtf", "1"))
        self.assertIsNotNone(self.found("Pages", Atspi.Role.FILLER), "page view")
        self.assertEqual(self.status(), ["Pages: 4   Zoom: 100 %"])

        self.open_dialog()
        self.show_options()
        self.choose_range(2, 3)
        self.enter("Copies:", 2)
        press("Return")
        self.assertEqual(pages_of(self.wait_job(2)), [PAGES[1], PAGES[2]] * 2)

        self.open_dialog()
        press("Escape")
        self.open_dialog()
        press("Return")
        self.assertEqual(pages_of(self.wait_job(3)), PAGES)
        self.end(self.program)

    def test_a_printer_that_takes_nothing(self):
        self.printers.add_queue()
        self.open_notes()
        self.printers.refuse_jobs()
        self.open_dialog()
        press("Return")
        self.wait_problem()
        self.open_dialog()
        self.printers.stop()
        press("Return")
        self.wait_problem()
        self.assertEqual(self.printers.jobs(), [])
        self.end(self.program)

    def test_without_a_printer_a_file_can_be_made(self):
        self.open_notes()
        self.open_dialog()
        self.assertIsNotNone(self.found("Print to File (PDF)", Atspi.Role.COMBO_BOX))
        press("Return")
        made = Path(self.home.name, "notes.pdf")
        wait_equal("the pages of the file", PAGES, lambda: pages_of(made) if made.exists() else None)
        self.end(self.program)


if __name__ == "__main__":
    unittest.main()
