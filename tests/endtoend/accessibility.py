# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader is told of the window."""

import gi

gi.require_version("Atspi", "2.0")

from gi.repository import Atspi, GLib  # noqa: E402


def application():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child and child.get_name() in ("quillon", "Quillon"):
            return child
    return None


def find(node, matches):
    """The first one, from the node downwards, of which this is true: it is asked with the
    node and its states."""
    try:
        states = node.get_state_set()
        if matches(node, states):
            return node
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child and (found := find(child, matches)):
                return found
    except GLib.Error:
        pass  # it has just gone
    return None


def shown() -> list[str]:
    """The roles, names and descriptions of all that is shown, for a failure's message."""
    found = []

    def note(node, states):
        node.clear_cache()
        if node.get_name() and states.contains(Atspi.StateType.SHOWING):
            found.append(f"{node.get_role_name()} “{node.get_name()}” {node.get_description()}".rstrip())
        return False

    if window := application():
        find(window, note)
    return found


def focused() -> str:
    """The name of the control that has the keyboard, or nothing."""
    def has_focus(node, states):
        if node.get_role_name() in ("frame", "application", "window") \
                or not states.contains(Atspi.StateType.FOCUSED):
            return False
        node.clear_cache()  # it may have lost it without a word
        states = node.get_state_set()
        return states.contains(Atspi.StateType.FOCUSED) \
            and states.contains(Atspi.StateType.FOCUSABLE)

    # What lies around it has the focus, too.
    node, place = None, application()
    while place:
        children = (place.get_child_at_index(index) for index in range(place.get_child_count()))
        place = next((found for child in children if child and (found := find(child, has_focus))), None)
        node = place or node
    return node.get_name() if node else ""


def bar():
    """What lies over the lower edge of the page, if it is shown."""
    window = application()
    return find(window, lambda node, states: node.get_role_name() == "tool bar"
                and states.contains(Atspi.StateType.SHOWING)) if window else None


def is_in_bar(control) -> bool:
    while control and control.get_role_name() != "tool bar":
        control = control.get_parent()
    return control is not None


def middle_of(control) -> tuple[int, int]:
    """In pixels of the screen."""
    box = control.get_extents(Atspi.CoordType.SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2
