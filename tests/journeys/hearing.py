"""What a screen reader is told of its own accord."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from screen import Node  # noqa: E402
from waiting import wait_for  # noqa: E402

SHOWING = "object:state-changed:showing"
FOCUSED = "object:state-changed:focused"
TEXT_CHANGED = "object:text-changed"


class Hearing:
    """Hears of menus that open, as a context manager. Those that belong to no window are in no tree either."""

    def __enter__(self):
        self._menu = None
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register(SHOWING)
        return self

    def __exit__(self, *_):
        self._listener.deregister(SHOWING)

    def wait_for_menu(self):
        """The menu that has opened since this was last asked."""
        menu = wait_for(self._latest, "a menu to open")
        self._menu = None
        return menu

    def _latest(self):
        _take_in()
        return self._menu

    def _hear(self, event):
        try:
            if event.detail1 and event.source.get_role_name() == "popup menu":
                self._menu = Node(event.source)
        except GLib.Error:
            # It has gone again.
            pass


class Focus:
    """Follows the focus, as a context manager."""

    def __enter__(self):
        self._names = []
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register(FOCUSED)
        # Of moves before this one.
        _take_in()
        self._names.clear()
        return self

    def __exit__(self, *_):
        self._listener.deregister(FOCUSED)

    def wait_for_move(self):
        """The name of what has the focus since this was last asked."""
        name = wait_for(self._latest, "the focus to move")
        self._names.clear()
        return name

    def _latest(self):
        _take_in()
        return self._names[-1] if self._names else None

    def _hear(self, event):
        try:
            if event.detail1:
                self._names.append(event.source.get_name())
        except GLib.Error:
            # It has gone again.
            pass


class Eavesdropper:
    """Notes what is told of every text that changes, as a context manager."""

    def __enter__(self):
        self.told = []
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register(TEXT_CHANGED)
        return self

    def __exit__(self, *_):
        _take_in()
        self._listener.deregister(TEXT_CHANGED)

    def wait_for(self, count):
        """Until that many characters have been told."""
        wait_for(lambda: _take_in() or len("".join(self.told)) >= count, f"{count} characters to be told")

    def _hear(self, event):
        self.told.append(str(event.any_data))


def _take_in():
    while GLib.MainContext.default().iteration(False):
        pass
