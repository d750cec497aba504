"""Working in the boxes: their keys, moving text between them, finding and replacing, and all of them together."""

import subprocess

from harness.conditions import wait_equal, wait_until
from harness.lives import xdotool
from harness.owners import copy
from harness.program import press
from harness.program_test import ProgramTest

COPIED = 'You can retrieve this text by pressing Ctrl-V or using the "Paste" option.'


class Boxes(ProgramTest):
    def fill(self, *texts):
        for number, text in enumerate(texts, 1):
            copy(text)
            self.wait_for_box(number, text)

    def go_to(self, number):
        box = self.program.box(number)
        xdotool("mousemove", *box.middle(), "click", "1")  # the pointer may be there already
        wait_until(f"the keyboard in text box {number}", box.is_focused)
        return box

    def nodes(self):
        return (node for node in self.program.tree.walk() if node.is_shown())

    def find(self, begin):
        return wait_until(f"{begin!r} on the screen",
                          lambda: next((node for node in self.nodes() if node.name().startswith(begin)), None))

    def wait_window(self, name):
        """Until the window of this name has the keyboard."""
        wait_until(f"the window {name!r}", lambda: xdotool("getactivewindow", "getwindowname") == name)

    def answer(self, message, key):
        self.find(message)
        wait_until("the keyboard in the message",
                   lambda: not xdotool("getactivewindow", "getwindowname").startswith("Storage"))
        press(key)
        self.wait_main_window()

    def wait_main_window(self):
        wait_until("the main window", lambda: xdotool("getactivewindow", "getwindowname").startswith("Storage"))

    def paste_of_others(self):
        done = subprocess.run(["xclip", "-selection", "clipboard", "-o"], capture_output=True, text=True, timeout=10)
        return done.stdout

    def test_keys_go_from_box_to_box_and_format(self):
        self.fill("first", "second")
        self.go_to(1)
        press("ctrl+Up")
        wait_until("text box 12", self.program.box(12).is_focused)
        press("ctrl+Down")
        wait_until("text box 1", self.program.box(1).is_focused)
        press("ctrl+a", "alt+b")
        wait_until("bold letters", lambda: self.program.box(1).attributes_at(1).get("weight") == "bold")
        press("End", "Tab", "x")
        self.wait_for_box(1, "first\tx")
        press("ctrl+z", "ctrl+z", "ctrl+z")
        self.wait_for_box(1, "first")

    def test_all_boxes_are_shown_copied_and_closed(self):
        self.fill("first", "second")
        press("F12")
        large = self.program.large_view()
        wait_equal("the large view", "first\nsecond\n", large.text)
        press("ctrl+F12")
        self.answer(COPIED, "Return")
        wait_equal("what others paste", "first\nsecond\n", self.paste_of_others)
        x, y = large.middle()
        xdotool("mousemove", "--sync", x, y, "keydown", "ctrl", "click", "1", "keyup", "ctrl")
        wait_until("the boxes", self.program.box(1).is_shown)
        self.assertEqual(self.program.texts()[:3], ["first", "second", ""])

    def test_boxes_are_emptied_only_on_yes(self):
        self.fill("first")
        press("ctrl+m")
        self.answer("Empty all text boxes ?", "Return")
        self.assertEqual(self.program.box(1).text(), "first")
        press("ctrl+m")
        self.answer("Empty all text boxes ?", "y")
        self.wait_for_box(1, "")
        copy("next")
        self.wait_for_box(2, "next")

    def test_found_and_replaced_beside_the_text(self):
        self.fill("a cat and a Cat")
        self.go_to(1)
        press("ctrl+r")
        self.wait_window("Replace")
        xdotool("type", "cat")
        press("Tab")
        xdotool("type", "dog")
        press("alt+a")
        self.find("Result")
        self.wait_for_box(1, "a dog and a dog")
        press("Escape")
        self.wait_main_window()
        self.assertTrue(self.program.box(1).is_focused())
        press("ctrl+z")
        self.wait_for_box(1, "a cat and a Cat")

    def test_text_is_dragged_into_another_box(self):
        self.fill("movable")
        self.go_to(1)
        press("ctrl+a")
        box, other = self.program.box(1), self.program.box(2)
        place = box.corner()
        x, y = place[0] + 20, place[1] + 12
        to = other.middle()
        xdotool("mousemove", x, y, "mousedown", "1")
        for step in range(1, 21):
            xdotool("mousemove", x + (to[0] - x) * step // 20, y + (to[1] - y) * step // 20)
        xdotool("mouseup", "1")
        self.wait_for_box(2, "movable")
        self.wait_for_box(1, "")

    def test_brief_help_and_menu_of_a_box(self):
        self.fill("first")
        self.go_to(1)
        press("shift+F1")
        self.answer("Ctrl-Left Mouse Button expands", "Return")
        press("ctrl+a", "shift+F10", "d")
        self.wait_for_box(1, "")
