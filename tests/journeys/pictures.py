"""PNG pictures of the display."""

import subprocess

from waiting import wait_for

# Debian's own programs, whatever else carries these names on a machine.
IMPORT = "/usr/bin/import-im6.q16"
CONVERT = "/usr/bin/convert-im6.q16"


class Album:
    """A folder of pictures."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        for stale in folder.glob("failure.*"):
            stale.unlink()

    def take(self, name, rect):
        """A picture of a part of the display, once nothing moves in it any more."""
        last = [None]

        def is_still():
            before, last[0] = last[0], _pixels(rect)
            return before == last[0]

        wait_for(is_still, f"the screen to come to rest for the picture {name}")
        self._save(name, last[0])

    def take_at_once(self, name, rect):
        """A picture of something that moves."""
        self._save(name, _pixels(rect))

    def take_failure(self):
        """A picture of the whole display as it is. Returns where it lies."""
        return self._save("failure", _pixels(None))

    def _save(self, name, pixels):
        path = self.folder / f"{name}.png"
        subprocess.run([CONVERT, "ppm:-", f"png:{path}"], input=pixels, check=True)
        return path


def _pixels(rect):
    crop = ["-crop", f"{rect.width}x{rect.height}+{rect.x}+{rect.y}", "+repage"] if rect else []
    return subprocess.run([IMPORT, "-window", "root", *crop, "ppm:-"], capture_output=True, check=True).stdout
