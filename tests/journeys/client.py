"""The real client, started on the journey's desktop against the journey's bridge."""

import re
import stat
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

import hands
from person import Person
from screen import Screen
from waiting import wait_for


@dataclass(frozen=True)
class Conditions:
    """Under which a person's desktop runs the program."""

    environment: dict = field(default_factory=dict)
    arguments: tuple = ()
    # Pixels of the display for one of the program.
    scale: float = 1
    # Whether that is what the program begins with.
    opens_window: bool = True


class Client:
    """One run of the program. `person` uses it, which works at a scale of 1 only: the mouse counts the display's
    pixels, the accessibility tree the program's."""

    def __init__(self, build, desktop, bridge, conditions=Conditions()):
        self._home = desktop.home
        self._program = build / "bin" / "quorvel"
        # The desktop finds the program's icons as if these were installed.
        self._environment = (desktop.environment | {"SSL_CERT_FILE": str(bridge.authority),
                                                    "XDG_DATA_DIRS": f"{build / 'share'}:/usr/share",
                                                    # What obeys it leaves a file that nobody expects.
                                                    "SSLKEYLOGFILE": str(desktop.home / "tls-keys")}
                             | conditions.environment)
        self._scale = conditions.scale
        # Of all runs, one behind the other.
        self._log = desktop.folder / "client.log"
        with self._log.open("ab") as log:
            self.process = desktop.processes.start(
                [self._program, *conditions.arguments], self._environment, stdout=log, stderr=log)
        self.screen = Screen(self.process.pid)
        self.person = Person(self.screen)
        if conditions.opens_window:
            self.wait_for_window()

    @property
    def window(self):
        """Where the content of the main window is on the display."""
        return self.wait_for_window().rect.scaled(self._scale)

    def wait_for_window(self):
        return wait_for(self._window, "the main window")

    def has_window(self):
        return self._window() is not None

    def wait_until_closed(self):
        wait_for(lambda: not self._window(), "the main window to close")

    def resize(self, width, height):
        hands.resize_active_window(width, height)
        wait_for(lambda: self.window[2:] == (width, height), f"a window of {width} by {height}")

    def start_again(self, *arguments, permission=None):
        """A second start on the same desktop, with its permission to come to the front where that needs one. Returns
        its exit code once it has ended."""
        permitted = {"XDG_ACTIVATION_TOKEN": permission} if permission else {}
        with self._log.open("ab") as log:
            return subprocess.run([self._program, *arguments], env=self._environment | permitted, stdout=log,
                                  stderr=log, timeout=30, check=False).returncode

    def is_running(self):
        return self.process.poll() is None

    def printed(self):
        """What this and earlier runs have written to the terminal."""
        return self._log.read_bytes()

    def largest_core(self):
        """The bytes that the system may write to disk of this process when it crashes."""
        limits = Path(f"/proc/{self.process.pid}/limits").read_text(encoding="ascii")
        return re.search(r"^Max core file size +(\S+) +\S+", limits, re.MULTILINE)[1]

    def core_filter(self):
        """Which parts of the memory a core file of this process would hold, in the kernel's words."""
        return Path(f"/proc/{self.process.pid}/coredump_filter").read_text(encoding="ascii").strip()

    def preferences(self):
        """The text of the one file that the client keeps."""
        return self.preferences_file.read_text(encoding="utf-8")

    @property
    def preferences_file(self):
        return self._home / ".config" / "Quorvel" / "Quorvel.conf"

    def preferences_mode(self):
        return stat.S_IMODE(self.preferences_file.stat().st_mode)

    def files_at_home(self):
        """Everything that lies in the home folder, relative to it."""
        return sorted(str(path.relative_to(self._home)) for path in self._home.rglob("*") if path.is_file())

    def file_at_home(self, path):
        return (self._home / path).read_bytes()

    def _window(self):
        return next((window for window in self.screen.windows
                     if window.role == "frame" and window.is_showing), None)
