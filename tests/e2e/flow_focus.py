"""A capture never takes the keyboard away."""

from harness.conditions import wait_until
from harness.owners import copy
from harness.program import click, press
from harness.program_test import ProgramTest


class Focus(ProgramTest):
    def test_typing_goes_on_where_it_was(self):
        mine = self.program.box(5)
        click(mine)
        wait_until("the keyboard in text box 5", mine.is_focused)
        press("a", "b")
        copy("comes in between")
        self.wait_for_box(1, "comes in between")
        self.assertTrue(mine.is_focused())
        press("c")
        self.wait_for_box(5, "abc")
