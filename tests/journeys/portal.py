"""The part of a desktop that tells programs how its person wants things to look: a settings portal, which runs as a
program of its own."""

import subprocess
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from display import end  # noqa: E402

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
APPEARANCE = "org.freedesktop.appearance"
# By which the journey changes what the portal tells.
HAND = "app.quorvel.Journey.Portal"
INTERFACES = f"""<node>
    <interface name="{SETTINGS}">
        <method name="Read">
            <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
        </method>
        <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
    </interface>
    <interface name="{HAND}">
        <method name="Tell"><arg type="s" direction="in"/><arg type="u" direction="in"/></method>
    </interface>
</node>"""


class Portal:
    """A desktop with a portal, as a context manager. Its person wishes for nothing at first."""

    def __init__(self, desktop):
        self._desktop = desktop

    def __enter__(self):
        self._process = self._desktop.processes.start(
            [sys.executable, __file__], self._desktop.environment, stdout=subprocess.PIPE, text=True)
        if not self._process.stdout.readline():
            raise RuntimeError("The settings portal did not start.")
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        return self

    def __exit__(self, *_):
        end(self._process)

    def want_dark(self, wanted):
        self._tell("color-scheme", 1 if wanted else 2)

    def want_contrast(self, wanted):
        self._tell("contrast", int(wanted))

    def _tell(self, key, value):
        self._bus.call_sync(SERVICE, PATH, HAND, "Tell", GLib.Variant("(su)", (key, value)), None,
                            Gio.DBusCallFlags.NONE, -1)


class _Settings:
    """What the portal tells whoever asks, and everybody when it changes."""

    def __init__(self, bus):
        self._bus = bus
        self._values = {"color-scheme": 0, "contrast": 0}
        for interface in Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces:
            bus.register_object(PATH, interface, self._called, None, None)

    def _called(self, _bus, _sender, _path, _interface, method, arguments, invocation):
        first, second = arguments.unpack()
        if method == "Tell":
            self._values[first] = second
            self._bus.emit_signal(None, PATH, SETTINGS, "SettingChanged", GLib.Variant(
                "(ssv)", (APPEARANCE, first, GLib.Variant("u", second))))
            invocation.return_value(None)
        elif first == APPEARANCE and second in self._values:
            # In a box within a box, as it has always been.
            value = GLib.Variant("v", GLib.Variant("u", self._values[second]))
            invocation.return_value(GLib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "There is no such setting.")


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    settings = _Settings(bus)  # noqa: F841 (lives as long as the loop)
    Gio.bus_own_name_on_connection(bus, SERVICE, Gio.BusNameOwnerFlags.NONE, lambda *_: print("Ready", flush=True),
                                   None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
