"""A desktop of today's kind, made for a part of the journey: a compositor without a screen, its keyboard, and pictures
of what it shows. There is one window at a time, which fills it."""

import json
import os
import pwd
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from display import end
from screen import Rect
from waiting import wait_for

SIZE = (1280, 900)
LAUNCHER = "Launcher"
# In milliseconds.
A_DAY = 24 * 60 * 60 * 1000
CONFIGURATION = """
output * resolution {}x{} position 0 0
default_border none
focus_on_window_activation focus
"""


class Compositor:
    """As a context manager. `environment` is what a program needs besides that of the desktop on whose buses it is."""

    def __init__(self, desktop, album):
        self._desktop = desktop
        self._album = album

    def __enter__(self):
        # It is an ordinary user's program, whoever runs the journey.
        self._folder = Path(tempfile.mkdtemp(prefix="quorvel-compositor-"))
        configuration = self._folder / "config"
        configuration.write_text(CONFIGURATION.format(*SIZE), encoding="ascii")
        ordinary = []
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            os.chown(self._folder, nobody.pw_uid, nobody.pw_gid)
            ordinary = ["setpriv", f"--reuid={nobody.pw_uid}", f"--regid={nobody.pw_gid}", "--clear-groups"]
        self._process = self._desktop.processes.start(
            [*ordinary, "sway", "--config", configuration],
            {"PATH": "/usr/bin:/bin", "HOME": str(self._folder), "XDG_RUNTIME_DIR": str(self._folder),
             "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1"},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        display = wait_for(lambda: self._socket("wayland-[0-9]"), "the compositor")
        self.environment = {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": str(display)}
        self._tools = self._desktop.environment | self.environment | {
            "SWAYSOCK": str(wait_for(lambda: self._socket("sway-ipc.*.sock"), "the compositor to take commands"))}
        # Each press comes from a keyboard that is there for that press alone. With the last keyboard of a desktop goes
        # the focus, so that one that nobody presses stays.
        self._keyboard = self._desktop.processes.start(["wtype", "-s", str(A_DAY), "-k", "Shift_L"], self._tools)
        return self

    def __exit__(self, *_):
        end(self._keyboard)
        end(self._process)
        shutil.rmtree(self._folder, ignore_errors=True)

    def press(self, *keys):
        """Each key by its name, for example "Tab", behind the keys that are held, as in "ctrl+shift+s"."""
        for key in keys:
            *held, last = key.split("+")
            holding = [part for name in held for part in ("-M", name)]
            self._run("wtype", *holding, "-k", last, *[part for name in held for part in ("-m", name)])

    def write(self, text):
        self._run("wtype", "-d", "2", text)

    def leave_window(self):
        """For an empty desktop."""
        self._run("swaymsg", "workspace", "empty")
        wait_for(lambda: not self.focused_title(), "the window to be left")

    def permission(self):
        """To come to the front, which a program must have from where its person starts it."""
        launcher = self._desktop.processes.start(
            [sys.executable, Path(__file__).with_name("launcher.py"), LAUNCHER],
            self._tools | {"GDK_BACKEND": "wayland"}, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        wait_for(lambda: self.focused_title() == LAUNCHER, "the launcher to have the focus")
        self.press("Return")
        return launcher.stdout.readline().strip()

    def focused_title(self):
        """Of the window that has the focus; empty when none has."""
        return _focused(json.loads(self._run("swaymsg", "-t", "get_tree")))

    def look(self):
        """What is shown: rows of red, green and blue."""
        picture = self._run("grim", "-t", "ppm", "-", text=False)
        head, pixels = picture[:len(picture) - 3 * SIZE[0] * SIZE[1]], picture[-3 * SIZE[0] * SIZE[1]:]
        if head.split() != [b"P6", b"%d" % SIZE[0], b"%d" % SIZE[1], b"255"]:
            raise RuntimeError("The compositor's pictures are not as large as its output.")
        return pixels

    def take(self, name):
        """A picture of all that is shown, once it keeps still."""
        seen = [b""]

        def is_still():
            seen.append(self.look())
            return seen[-1] == seen[-2]

        wait_for(is_still, f"the screen to come to rest for the picture {name}")
        self._run("grim", str(self._album.folder / f"wayland-{name}.png"))
        return seen[-1]

    def _socket(self, pattern):
        return next(iter(self._folder.glob(pattern)), None)

    def _run(self, *arguments, text=True):
        return subprocess.run(arguments, env=self._tools, capture_output=True, text=text, check=True).stdout


def changed(before, after):
    """The part of the output in which two looks differ."""
    width = SIZE[0]
    row_bytes = 3 * width
    rows = [row for row in range(SIZE[1])
            if before[row * row_bytes:(row + 1) * row_bytes] != after[row * row_bytes:(row + 1) * row_bytes]]
    if not rows:
        return Rect(0, 0, 0, 0)
    columns = [place // 3 for row in rows for place in _differences(before, after, row * row_bytes, row_bytes)]
    return Rect(min(columns), rows[0], max(columns) - min(columns) + 1, rows[-1] - rows[0] + 1)


def _differences(before, after, begin, length):
    """The first and the last place in a row."""
    places = [place for place in range(length) if before[begin + place] != after[begin + place]]
    return places[0], places[-1]


def _focused(node):
    if node.get("focused") and node["type"] == "con":
        return node["name"] or ""
    for child in [*node["nodes"], *node["floating_nodes"]]:
        if title := _focused(child):
            return title
    return ""
