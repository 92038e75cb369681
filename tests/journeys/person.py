"""Somebody who uses the client: finds controls with the eyes of a screen reader, works them with mouse and keys."""

from itertools import islice

from gi.repository import GLib

import hands
from screen import Node, Screen
from waiting import wait_for

# How far inside the edge of a scrolling area the pointer rests while its wheel turns: on no control.
MARGIN = 6
# No notch of the wheel scrolls by more pixels, so that nobody scrolls past what is looked for.
LONGEST_NOTCH = 80


class Person:
    """Every action waits for its control, and most for its effect."""

    def __init__(self, screen: Screen):
        self.screen = screen

    def click(self, role, name, within=None, holding=None):
        node = self.screen.wait(role, name, within)
        self.click_on(node, holding)
        return node

    def press_button(self, name, within=None):
        return self.click("push button", name, within)

    def click_on(self, node: Node, holding=None):
        wait_for(lambda: "enabled" in node.states, f'"{node.name}" to be enabled')
        self.reveal(node)
        hands.click(*node.rect.centre, holding)

    def reveal(self, node: Node):
        """Scrolls until the whole control is in sight."""
        while area := node.clipping_ancestor():
            self.reveal(area)
            before, seen = node.rect, area.rect
            above, below = seen.y - before.y, before.bottom - seen.bottom
            direction, distance = (hands.WHEEL_UP, above) if above > 0 else (hands.WHEEL_DOWN, below)
            hands.wheel(seen.x + MARGIN, seen.y + seen.height // 2, direction, max(1, distance // LONGEST_NOTCH))
            self._wait_until_scrolled(node, before)

    def _wait_until_scrolled(self, node, before):
        places = [before]

        def has_come_to_rest():
            places.append(node.rect)
            return places[-1] == places[-2] != before

        wait_for(has_come_to_rest, f'"{node.name}" to scroll into sight', interval=0.02)

    def fill(self, name, text, within=None, role="text"):
        """Replaces what a field of one line says, or what its several lines say, by a text of one line."""
        field = self.click(role, name, within)
        hands.press("ctrl+a")
        hands.write(text) if text else hands.press("Delete")
        if role != "password text":
            wait_for(lambda: field.text == text, f'the field "{name}" to say "{text}"')
        return field

    def fill_password(self, name, text):
        self.fill(name, text, role="password text")

    def choose(self, picker, option, within=None, place=0):
        """Picks an entry from a combo box's list with the mouse. `place` counts the pickers of one name. What is
        picked may put another picker in the place of this one."""
        box = wait_for(lambda: self._picker(picker, within, place), f'the picker "{picker}"')
        self.click_on(box)
        self.click("list item", option, within=box)
        wait_for(lambda: self._shows(picker, within, place, option), f'"{picker}" to show "{option}"')

    def _picker(self, name, within, place):
        return next(islice(self.screen.find_all("combo box", name, within), place, None), None)

    def _shows(self, picker, within, place, option):
        try:
            box = self._picker(picker, within, place)
            return box and box.text == option
        except GLib.Error:
            return False

    def turn(self, switch, on, within=None):
        box = self.screen.wait("check box", switch, within)
        if ("checked" in box.states) != on:
            self.click_on(box)
        wait_for(lambda: ("checked" in box.states) == on, f'the switch "{switch}" to turn')
        return box

    def pick_radio(self, name, within=None):
        button = self.click("radio button", name, within)
        wait_for(lambda: "checked" in button.states, f'"{name}" to be picked')
        return button

    def read_alert(self, title, message, picture=None):
        """Expects the one modal alert, lets `picture` be taken, and dismisses it."""
        self.answer(title, message, "OK", picture)

    def answer(self, title, message, button, picture=None):
        """The same for a question, which is answered by the button."""
        alert = wait_for(lambda: self._alert(title), f'the alert "{title}"')
        self.screen.wait_reads(message, within=alert)
        if picture:
            picture()
        self.press_button(button, within=alert)
        wait_for(lambda: not self._alert(title), f'the alert "{title}" to close')

    def _alert(self, title):
        for role in ("alert", "dialog"):
            if found := self.screen.find(role, title):
                return found
        return None
