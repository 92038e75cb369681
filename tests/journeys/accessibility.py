"""What a screen is to those who cannot see it, or who work without a mouse: one walk over everything that is shown,
which notes at once whatever they would stumble over."""

from collections import Counter

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
    findings = wait_for(lambda: _walk(screen), "the screen to keep still while it is read")[0]
    if findings:
        raise AssertionError("\n  ".join(["What assistive technology would stumble over:", *findings]))


def _walk(screen):
    """The findings as the one entry of a tuple, or None when the screen was replaced during the walk."""
    try:
        walk = _Walk()
        for window in screen.windows:
            walk.enter(window)
        return (walk.findings,)
    except GLib.Error:
        return None


class _Walk:
    """Reads each property of each node once, since every reading is a call to the client."""

    def __init__(self):
        self.findings = []

    def enter(self, window):
        if "showing" in window.states:
            self._visit(window, window.role, window.name, window.states, _Group((), window.rect))

    def _visit(self, node, role, name, states, group):
        """A node that is shown. Returns whether the focus is in it."""
        self._judge(node, role, name, states, group)
        inner = group.around(name)
        has_focus = "focused" in states
        captions = []
        for child in node.children:
            child_role, child_states = child.role, child.states
            # A row that is out of sight only until somebody scrolls does not show itself.
            if "showing" not in child_states and child_role != "list item":
                continue
            child_name = child.name
            if child_role == "label":
                captions.append(child_name)
            elif child_role in FIELDS and captions:
                self._judge_caption(child, child_role, child_name, captions, inner)
            has_focus |= self._visit(child, child_role, child_name, child_states, inner)
        if role in MODAL and not has_focus:
            self._note(role, name, group, "does not have the focus")
        return has_focus

    def _judge(self, node, role, name, states, group):
        is_worked = "focusable" in states
        if (is_worked or role in NAMED) and not name.strip():
            self._note(role, name, group, "has no name")
        if not is_worked:
            return
        if group.has_met(role, name):
            self._note(role, name, group, "is there twice, and nothing tells one from the other")
        rect = node.rect
        if "enabled" in states and rect.is_empty:
            self._note(role, name, group, "takes the focus, but no room")
        if not group.window.spans(rect):
            self._note(role, name, group, "sticks out of the window sideways, where nobody can scroll")

    def _judge_caption(self, field, role, name, captions, group):
        if captions[-1] not in field.labels:
            self._note(role, name, group, f'is not related to its caption "{captions[-1]}"')

    def _note(self, role, name, group, fault):
        self.findings.append(f'{role} "{name}" in {group}: {fault}')


class _Group:
    """The nearest named thing around a control, by the names that lead to it, and what has been met within."""

    def __init__(self, path, window):
        self._path = path
        self.window = window
        self._met = Counter()

    def around(self, name):
        """The group of what lies inside a node of this group."""
        return _Group((*self._path, name), self.window) if name else self

    def has_met(self, role, name):
        self._met[role, name] += 1
        return self._met[role, name] > 1

    def __str__(self):
        return " / ".join(self._path) or "the desktop"

