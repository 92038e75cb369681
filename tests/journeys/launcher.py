"""The part of a desktop from which people start programs, in a window of its own: whatever key is pressed in it, it
asks the compositor for the permission that the program which it starts may come to the front, and prints that."""

import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gio, Gtk  # noqa: E402

def main():
    window = Gtk.Window(title=sys.argv[1])
    entry = Gio.AppInfo.create_from_commandline("quorvel", "Quorvel",
                                                Gio.AppInfoCreateFlags.SUPPORTS_STARTUP_NOTIFICATION)

    def permit(*_):
        context = window.get_display().get_app_launch_context()
        print(context.get_startup_notify_id(entry, []), flush=True)

    window.connect("key-press-event", permit)
    window.show_all()
    Gtk.main()


if __name__ == "__main__":
    main()
