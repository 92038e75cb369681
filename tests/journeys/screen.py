"""What a screen reader sees of the client: controls by role and name, where they are, and what they say."""

from functools import cached_property
from typing import NamedTuple

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from waiting import wait_for  # noqa: E402

# A list may hold thousands of rows; only those near its beginning are ever on the screen here.
MOST_CHILDREN = 300
# In which nothing lies, so that nobody has to ask.
LEAVES = {"label", "push button", "radio button", "scroll bar"}
# What lies inside one of these is not clipped by what lies around it. A picker's list opens over the picker.
IN_ITS_OWN_WINDOW = {"application", "frame", "dialog", "alert", "combo box"}


class Rect(NamedTuple):
    """In pixels of the display."""

    x: int
    y: int
    width: int
    height: int

    @property
    def bottom(self):
        return self.y + self.height

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def scaled(self, factor):
        return Rect(*(round(length * factor) for length in self))

    @property
    def is_empty(self):
        return self.width <= 0 or self.height <= 0

    def spans(self, other):
        """Whether the other lies within this one from side to side."""
        return self.x <= other.x and other.x + other.width <= self.x + self.width

    def reaches_around(self, other):
        """Whether the other lies within this one from top to bottom; nothing here scrolls sideways."""
        return self.y <= other.y and other.bottom <= self.bottom


class Node:
    """One control. It may go at any time: its properties raise GLib.Error then."""

    def __init__(self, accessible):
        self._accessible = accessible

    @cached_property
    def role(self):
        return self._accessible.get_role_name()

    @property
    def name(self):
        return self._accessible.get_name()

    @property
    def description(self):
        return self._accessible.get_description()

    @property
    def text(self):
        """What is written in a field, or shown by a picker."""
        if self.role == "combo box":
            return self.description
        return Atspi.Text.get_text(self._accessible, 0, -1)

    @property
    def value(self):
        return Atspi.Value.get_current_value(self._accessible)

    @property
    def states(self):
        """Words such as "checked", "enabled", "selected"."""
        return {state.value_nick for state in self._accessible.get_state_set().get_states()}

    @property
    def rect(self):
        extents = self._accessible.get_extents(Atspi.CoordType.SCREEN)
        return Rect(extents.x, extents.y, extents.width, extents.height)

    @property
    def labels(self):
        """The names of what the control says it is labelled by."""
        relations = [relation for relation in self._accessible.get_relation_set()
                     if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]
        return [relation.get_target(place).get_name() for relation in relations
                for place in range(relation.get_n_targets())]

    @property
    def parent(self):
        accessible = self._accessible.get_parent()
        return Node(accessible) if accessible else None

    @property
    def children(self):
        if self.role in LEAVES:
            return []
        count = min(self._accessible.get_child_count(), MOST_CHILDREN)
        children = (self._accessible.get_child_at_index(index) for index in range(count))
        return [Node(child) for child in children if child]

    @property
    def is_showing(self):
        """Also for what is out of sight only until somebody scrolls."""
        shown = self.parent if self.role == "list item" else self
        return "showing" in shown.states and not self.rect.is_empty

    def descendants(self):
        """In reading order, without the node itself."""
        for child in self.children:
            yield child
            yield from child.descendants()

    def clipping_ancestor(self):
        """The nearest node around this one that shows only a part of it, or None when all of it is shown."""
        rect = self.rect
        ancestor = self.parent
        while ancestor and ancestor.role not in IN_ITS_OWN_WINDOW:
            if not ancestor.rect.is_empty and not ancestor.rect.reaches_around(rect):
                return ancestor
            ancestor = ancestor.parent
        return None


class Screen:
    """All windows of one process."""

    def __init__(self, process_id):
        self._application = wait_for(lambda: _application(process_id), "the client's accessibility tree")

    @property
    def windows(self):
        return self._application.children

    def find(self, role, name, within=None):
        """The first control that is shown with this role and name, or None."""
        return next(iter(self.find_all(role, name, within)), None)

    def find_all(self, role, name=None, within=None):
        """Lazily, in reading order; of any name without one."""
        root = within or self._application
        try:
            for node in root.descendants():
                if node.role == role and name in (None, node.name) and node.is_showing:
                    yield node
        except GLib.Error:
            # A screen was replaced while it was read; whoever waits reads again.
            return

    def wait(self, role, name, within=None):
        return wait_for(lambda: self.find(role, name, within), f'the {role} "{name}"')

    def wait_gone(self, role, name):
        wait_for(lambda: not self.find(role, name), f'the {role} "{name}" to go')

    def reads(self, text, within=None):
        """Whether any control says the text, as its name, its description or the text in it."""
        root = within or self._application
        try:
            return any((text in node.name or text in node.description) and node.is_showing
                       for node in root.descendants())
        except GLib.Error:
            return False

    def wait_reads(self, text, within=None):
        wait_for(lambda: self.reads(text, within), f'a control that says "{text}"')

    def dump(self):
        """The whole tree, one control a line, for whoever looks into a failure."""
        return "\n".join(_lines(self._application, 0))


def _application(process_id):
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application and application.get_process_id() == process_id:
            application.set_cache_mask(Atspi.Cache.NONE)
            return Node(application)
    return None


def _lines(node, depth):
    try:
        if depth > 1 and not node.is_showing:
            return
        states = sorted(node.states - {"enabled", "sensitive", "visible", "focusable"})
        yield f"{'  ' * depth}{node.role} \"{node.name}\" {tuple(node.rect)} {' '.join(states)}"
        for child in node.children:
            yield from _lines(child, depth + 1)
    except GLib.Error as error:
        yield f"{'  ' * depth}(gone: {error.message})"
