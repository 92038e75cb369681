"""The older kind of tray, which takes in a window of each program and leaves menus to them."""

import re
import subprocess

from display import end
from screen import Rect
from waiting import wait_for

LIGHT, DARK = "0xeff0f1", "0x2a2e32"
# Large enough for a picture of 22 pixels.
HEIGHT = 24
PANEL = re.compile(r'(0x\w+) "panel": \("panel" "trayer"\)')
ICON = re.compile(r'\("quorvel" "Quorvel"\) +(\d+)x(\d+)\+\S+ +\+(\d+)\+(\d+)')


class OlderTray:
    """Such a tray on a panel of this colour, in the display's corner, as a context manager."""

    def __init__(self, desktop, colour):
        self._desktop = desktop
        self._colour = colour

    def __enter__(self):
        self._process = self._desktop.processes.start(
            ["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request", "--height", str(HEIGHT),
             "--transparent", "true", "--alpha", "0", "--tint", self._colour],
            self._desktop.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        end(self._process)

    def wait_for_icon(self):
        """Where the client's window in the tray is."""
        return wait_for(self._icon, "the client's icon in the tray")

    def _icon(self):
        panel = PANEL.search(_windows("-root"))
        icon = panel and ICON.search(_windows("-id", panel[1]))
        if not icon:
            return None
        width, height, x, y = map(int, icon.groups())
        return Rect(x, y, width, height)


def _windows(*below):
    """The tree of windows, a line each. Nothing when it changes while it is read."""
    return subprocess.run(["xwininfo", "-tree", *below], capture_output=True, text=True, check=False).stdout
