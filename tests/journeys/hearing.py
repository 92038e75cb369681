"""What a screen reader is told of its own accord."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from screen import Node  # noqa: E402
from waiting import wait_for  # noqa: E402

SHOWING = "object:state-changed:showing"


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
        while GLib.MainContext.default().iteration(False):
            pass
        return self._menu

    def _hear(self, event):
        try:
            if event.detail1 and event.source.get_role_name() == "popup menu":
                self._menu = Node(event.source)
        except GLib.Error:
            # It has gone again.
            pass
