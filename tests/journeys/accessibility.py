"""What a screen is to those who cannot see it, or who work without a mouse: one walk over everything that is shown,
which notes at once whatever they would stumble over."""

from collections import Counter
from functools import cached_property

from gi.repository import GLib

from waiting import wait_for

FIELDS = {"text", "password text", "combo box", "spin button"}
# What is told by its name, whether or not somebody works with it.
NAMED = FIELDS | {"push button", "radio button", "check box", "slider", "list", "list item", "table", "menu", "menu item",
                  "progress bar", "label", "alert", "dialog", "frame"}
# What everybody must answer before anything else, so that the keyboard has to be there.
MODAL = {"alert", "dialog"}


class Inspector:
    """Walks each screen of a journey once, in whichever scheme it comes first."""

    def __init__(self):
        self._inspected = set()

    def inspect(self, screen, name):
        if name not in self._inspected:
            self._inspected.add(name)
            expect_accessible(screen)


def expect_accessible(screen):
    """Fails with everything that is wrong with the screen. Reads it again when it changes meanwhile."""
    walk = wait_for(lambda: _walk(screen), "the screen to keep still while it is read")
    if walk.findings:
        raise AssertionError("\n  ".join(["What people would stumble over:", *walk.findings]))


def _walk(screen):
    try:
        walk = _Walk()
        for window in screen.windows:
            walk.enter(window)
        return walk
    except GLib.Error:
        return None


class _Told:
    """What a node tells. Each property is read once, since every reading is a call to the client."""

    def __init__(self, node):
        self.node = node

    @property
    def role(self):
        return self.node.role

    @cached_property
    def states(self):
        return self.node.states

    @cached_property
    def name(self):
        # What only arranges others has none.
        return self.node.name.strip() if self.is_worked or self.role != "filler" else ""

    @property
    def is_shown(self):
        """Also what is out of sight only until somebody scrolls, but for the rows of a list."""
        return "showing" in self.states

    @property
    def is_worked(self):
        return "focusable" in self.states

    @property
    def children(self):
        return [child for child in map(_Told, self.node.children) if child.is_shown]


class _Group:
    """The nearest named thing around a control, by the names that lead to it, with the controls that were met in it."""

    def __init__(self, path, window):
        self.path = path
        self.window = window
        self._met = Counter()

    def around(self, name):
        """The group of what lies in something of this group."""
        return _Group((*self.path, name), self.window) if name else self

    def has_met(self, told):
        self._met[told.role, told.name] += 1
        return self._met[told.role, told.name] > 1


class _Walk:
    """`findings` are sentences, in reading order."""

    def __init__(self):
        self.findings = []

    def enter(self, window):
        told = _Told(window)
        if told.is_shown:
            self._visit(told, _Group((), window.rect))

    def _visit(self, told, group):
        """Returns whether the focus is in it."""
        self._judge(told, group)
        inner = group.around(told.name)
        children = told.children
        self._judge_captions(children, inner)
        has_focus = "focused" in told.states
        for child in children:
            has_focus |= self._visit(child, inner)
        if told.role in MODAL and not has_focus:
            self._note(told, group, "does not have the focus")
        return has_focus

    def _judge(self, told, group):
        if not told.name and (told.is_worked or told.role in NAMED):
            self._note(told, group, "has no name")
        if not told.is_worked:
            return
        # Rows as well: whoever hears two that say the same cannot choose between them.
        if group.has_met(told):
            self._note(told, group, "is there twice, and nothing tells one from the other")
        rect = told.node.rect
        if rect.is_empty and "enabled" in told.states:
            self._note(told, group, "takes the focus, but no room")
        if not group.window.spans(rect):
            self._note(told, group, "sticks out of the window sideways, where nobody can scroll")

    def _judge_captions(self, siblings, group):
        """A text right before a field is its caption if it says so, or if there is nothing else with them."""
        for before, field in zip(siblings, siblings[1:]):
            if before.role != "label" or field.role not in FIELDS:
                continue
            is_caption = before.name.startswith(field.name) or len(siblings) == 2
            if is_caption and before.name not in field.node.labels:
                self._note(field, group, f'is not related to its caption "{before.name}"')

    def _note(self, told, group, fault):
        self.findings.append(f'{told.role} "{told.name}" in {" / ".join(group.path) or "the desktop"}: {fault}')
