"""The program as a screen reader sees it. Nothing is cached: every call asks the program."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from .conditions import wait_until  # noqa: E402

# How long the program may take for one answer, and how long it may take to start, in milliseconds.
Atspi.set_timeout(5000, 5000)


class Node:
    """One accessible object."""

    def __init__(self, accessible):
        self._accessible = accessible

    def name(self):
        return self._accessible.get_name()

    def description(self):
        return self._accessible.get_description()

    def role(self):
        return self._accessible.get_role()

    def text(self):
        return Atspi.Text.get_text(self._accessible, 0, -1)

    def length(self):
        return Atspi.Text.get_character_count(self._accessible)

    def attributes_at(self, offset):
        """The text attributes of the character at `offset`."""
        return Atspi.Text.get_attribute_run(self._accessible, offset, True)[0]

    def has_state(self, state):
        return self._accessible.get_state_set().contains(state)

    def middle(self):
        """The point in the middle of the object, in pixels of the screen."""
        place = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return place.x + place.width // 2, place.y + place.height // 2

    def corner(self):
        """The upper left point of the object, in pixels of the screen."""
        place = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return place.x, place.y

    def is_shown(self):
        return self.has_state(Atspi.StateType.SHOWING)

    def is_focused(self):
        return self.has_state(Atspi.StateType.FOCUSED)

    def children(self):
        """What lies directly below; of the program itself, its windows."""
        found = [self._accessible.get_child_at_index(index) for index in range(self._accessible.get_child_count())]
        return [Node(child) for child in found if child]

    def walk(self):
        """Everything below, each object before its children."""
        for index in range(self._accessible.get_child_count()):
            child = self._accessible.get_child_at_index(index)
            if child:
                yield Node(child)
                yield from Node(child).walk()


def _application_of(process_id):
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        try:
            if application and application.get_process_id() == process_id:
                return application
        except GLib.Error:  # a program that has just ended
            continue
    return None


def application(process_id):
    """The tree of a running program, as soon as it has announced itself."""
    found = wait_until(f"process {process_id} in the accessibility tree", lambda: _application_of(process_id), 20)
    found.set_cache_mask(Atspi.Cache.NONE)
    return Node(found)


TEXT = Atspi.Role.TEXT
LABEL = Atspi.Role.LABEL
