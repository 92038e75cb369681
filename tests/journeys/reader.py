"""A real screen reader, which runs beside the client and writes down what it would say."""

import re
import subprocess

from display import end
from waiting import wait_for

SPOKEN = re.compile(r"SPEECH OUTPUT: '(.*)'(?: voice=\w+)? ?\{'")
# It names each key that is pressed, with a blank behind it for the state of a key that locks.
KEY_ECHO = re.compile(r"^.* $")


class Reader:
    """Reads this desktop to its person, as a context manager."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._folder = desktop.folder / "reader"
        self._log = self._folder / "debug.txt"
        self._heard = 0

    def __enter__(self):
        home = self._folder / "home"
        tools = self._folder / "tools"
        home.mkdir(parents=True)
        tools.mkdir()
        # It asks whether another one runs, on whatever display, and would not start beside that.
        finder = tools / "pgrep"
        finder.write_text("#!/bin/sh\nexit 1\n", encoding="ascii")
        finder.chmod(0o755)
        environment = self._desktop.environment | {
            "HOME": str(home), "PATH": f"{tools}:/usr/bin:/bin",
            # Nothing that speaks aloud is started.
            "SPEECHD_CMD": str(tools / "none"),
            **{variable: str(home / variable) for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME")}}
        self._process = self._desktop.processes.start(
            ["orca", f"--debug-file={self._log}", "--enable=position-speaking"], environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for("Screen reader on.")
        return self

    def __exit__(self, *_):
        end(self._process)

    def wait_for(self, *phrases):
        """Until it has said all of them, in this order, since what was last waited for. Each is a part of what it says
        in one breath."""
        for phrase in phrases:
            wait_for(lambda: self._hears(phrase), f'the screen reader to say "{phrase}"')  # noqa: B023

    def wait_for_anything(self):
        """Returns it. Silence where somebody has arrived is what must not be."""
        return wait_for(lambda: self._hears(""), "the screen reader to say anything")

    def forget(self):
        """What it has said so far is waited for no more."""
        self._heard = len(self.transcript())

    def transcript(self):
        """All that it has said, but for the names of keys."""
        spoken = SPOKEN.findall(self._log.read_text(encoding="utf-8", errors="replace")) if self._log.exists() else []
        return [phrase for phrase in spoken if not KEY_ECHO.match(phrase)]

    def _hears(self, part):
        said = self.transcript()
        for place in range(self._heard, len(said)):
            if part in said[place]:
                self._heard = place + 1
                return said[place]
        return None
