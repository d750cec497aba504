"""The whole window can be used with keys, and the sidebar finds its programs."""

from harness.accessible import Atspi
from harness.conditions import wait_until
from harness.program import press
from harness.program_test import ProgramTest


class Navigation(ProgramTest):
    def _node(self, name, role):
        for node in self.program.tree.walk():
            if node.name() == name and node.role() == role:
                return node
        self.fail(f"no {name} in the window")

    def test_menus_and_top_row_are_told_to_screen_readers(self):
        for name in ["File", "Edit", "View", "Misc"]:
            self._node(name, Atspi.Role.MENU_ITEM)
        for name in ["Exit program", "Show desktop", "Toggle display of sidebar", "Toggle full screen for box contents"]:
            self._node(name, Atspi.Role.PUSH_BUTTON)

    def test_f7_hides_the_sidebar_and_shows_it_again(self):
        row = self._node("Save all boxes", Atspi.Role.TABLE_CELL)
        self.assertTrue(row.is_shown())
        left = self.program.box(1).middle()[0]
        press("F7")
        wait_until("boxes that take the sidebar's room", lambda: self.program.box(1).middle()[0] < left)
        press("F7")
        wait_until("boxes that give it back", lambda: self.program.box(1).middle()[0] == left)
        self.assertTrue(self.program.box(1).is_focused())

    def test_menu_by_keys(self):
        press("alt+e", "v")
        wait_until("the cumulative text", self.program.cumulative().is_shown)
        press("alt+e", "v")
        wait_until("the boxes", self.program.box(1).is_shown)
