"""The part of a desktop that shows tray items: a watcher, which runs as a program of its own, and a hand that picks
from an item's menu as such a desktop does."""

import re
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from display import end  # noqa: E402
from waiting import wait_for  # noqa: E402

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
INTERFACE = f"""<node><interface name="{WATCHER}">
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
    <property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""


class Tray:
    """A desktop's tray, in which one program has its item. It is there from the start."""

    def __init__(self, desktop):
        self.desktop = desktop
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.start()

    def start(self):
        """Also again after `stop`."""
        self._watcher = self.desktop.processes.start([sys.executable, __file__], self.desktop.environment)
        wait_for(lambda: self._is_owned(WATCHER), "the tray")

    def stop(self):
        end(self._watcher)
        wait_for(lambda: not self._is_owned(WATCHER), "the tray to go")

    def wait_for_item(self):
        wait_for(self._items, "the client's tray item")

    def titles(self):
        """What the menu offers, in its order; separators as empty texts."""
        return [_shown(properties.get("label", "")) for _, properties in self._entries()]

    def choose(self, title):
        identifier = next(number for number, properties in self._entries()
                          if _shown(properties.get("label", "")) == title)
        self._call_menu("Event", GLib.Variant("(isvu)", (identifier, "clicked", GLib.Variant("i", 0), 0)))

    def click(self):
        """As a desktop does that keeps the menu for the other button."""
        (item,) = self._items()
        self._bus.call_sync(item, "/StatusNotifierItem", ITEM, "Activate", GLib.Variant("(ii)", (0, 0)), None,
                            Gio.DBusCallFlags.NONE, -1)

    def icon_name(self):
        (item,) = self._items()
        return self._get(item, "/StatusNotifierItem", ITEM, "IconName")

    def _entries(self):
        self._call_menu("AboutToShow", GLib.Variant("(i)", (0,)))
        layout = self._call_menu("GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        _, (_, _, entries) = layout.unpack()
        return [(number, properties) for number, properties, _ in entries]

    def _call_menu(self, method, arguments):
        (item,) = self._items()
        menu = self._get(item, "/StatusNotifierItem", ITEM, "Menu")
        return self._bus.call_sync(item, menu, MENU, method, arguments, None, Gio.DBusCallFlags.NONE, -1)

    def _items(self):
        return self._get(WATCHER, "/StatusNotifierWatcher", WATCHER, "RegisteredStatusNotifierItems")

    def _get(self, service, path, interface, name):
        answer = self._bus.call_sync(service, path, "org.freedesktop.DBus.Properties", "Get",
                                     GLib.Variant("(ss)", (interface, name)), None, Gio.DBusCallFlags.NONE, -1)
        return answer.unpack()[0]

    def _is_owned(self, name):
        answer = self._bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                                     GLib.Variant("(s)", (name,)), None, Gio.DBusCallFlags.NONE, -1)
        return answer.unpack()[0]


def _shown(label):
    """A label as people see it: an underscore marks the character behind it."""
    return re.sub("_(.)", r"\1", label)


class Watcher:
    """Remembers the items that programs announce, for as long as these run."""

    def __init__(self, bus):
        self._bus = bus
        self._items = []
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        bus.register_object("/StatusNotifierWatcher", interface, self._called, self._asked, None)

    def _called(self, _bus, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            announced = arguments.unpack()[0]
            self._add(sender if announced.startswith("/") else announced)
        invocation.return_value(None)

    def _add(self, item):
        self._items.append(item)
        Gio.bus_watch_name_on_connection(self._bus, item, Gio.BusNameWatcherFlags.NONE, None,
                                         lambda _bus, gone: self._items.remove(gone))

    def _asked(self, _bus, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", self._items),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    watcher = Watcher(bus)  # noqa: F841 (lives as long as the loop)
    Gio.bus_own_name_on_connection(bus, WATCHER, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
