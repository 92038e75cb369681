"""A real screen reader, which runs beside the client and writes down what it would say."""

import os
import re
import subprocess
import tty
from threading import Thread

from display import end
from waiting import wait_for

SPOKEN = re.compile(r"SPEECH OUTPUT: '(.*)'(?: voice=\w+)? ?\{")


class Reader:
    """Reads this desktop to its person, as a context manager."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._said = []
        self._heard = 0

    def __enter__(self):
        # To a terminal it writes each line at once; to a file, when there are many.
        self._ear, mouth = os.openpty()
        tty.setraw(mouth)
        self._listener = Thread(target=self._listen, daemon=True)
        self._listener.start()
        self._process = self._desktop.processes.start(
            ["orca", f"--debug-file={os.ttyname(mouth)}", "--enable=position-speaking"], self._environment(),
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for("Screen reader on.")
        os.close(mouth)
        return self

    def __exit__(self, *_):
        end(self._process)
        self._listener.join()
        os.close(self._ear)

    def wait_for(self, *phrases):
        """Until it has said all of them, in this order, since what was last waited for. Each is a part of what it says
        in one breath."""
        for phrase in phrases:
            wait_for(lambda: self._hears(phrase), f'the screen reader to say "{phrase}"')  # noqa: B023

    def forget(self):
        """What it has said so far is waited for no more."""
        self._heard = len(self._said)

    def transcript(self):
        """All that it has said, but for the names of keys."""
        return list(self._said)

    def _environment(self):
        """With a home of its own, since the client's is looked into."""
        home, tools = (self._desktop.folder / "reader" / name for name in ("home", "tools"))
        for folder in (home, tools):
            folder.mkdir(parents=True)
        # It asks whether another one runs, on whatever display, and would not start beside that.
        finder = tools / "pgrep"
        finder.write_text("#!/bin/sh\nexit 1\n", encoding="ascii")
        finder.chmod(0o755)
        # Nothing that speaks aloud is started.
        return self._desktop.environment | {
            "HOME": str(home), "PATH": f"{tools}:/usr/bin:/bin", "SPEECHD_CMD": str(tools / "none"),
            **{variable: str(home / variable) for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME")}}

    def _listen(self):
        """Until nobody can write any more."""
        rest = b""
        while written := self._read():
            *lines, rest = (rest + written).split(b"\n")
            for line in lines:
                spoken = SPOKEN.search(line.decode(errors="replace"))
                # Behind the name of a key is a blank, and the state of a key that locks.
                if spoken and not spoken[1].endswith(" "):
                    self._said.append(spoken[1])

    def _read(self):
        try:
            return os.read(self._ear, 65536)
        except OSError:
            return b""

    def _hears(self, part):
        for place in range(self._heard, len(self._said)):
            if part in self._said[place]:
                self._heard = place + 1
                return True
        return False
