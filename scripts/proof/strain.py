"""The bridge under strain."""

import sys

from proof import trees


class Strain:
    name = "strain"

    def __init__(self, form):
        self._seconds = form.of(20, 3)
        self._rounds = form.of(3, 1)
        self.amount = f"{6 * self._rounds} phases of {self._seconds} s, one client alone and beside many"

    def run(self):
        binaries = trees.build("developer", "quorvel-bridge")
        log = trees.call("strain", [sys.executable, trees.ROOT / "tests" / "load" / "strain.py", "--bridge",
                                    binaries / "quorvel-bridge", "--seconds", str(self._seconds), "--rounds",
                                    str(self._rounds)])
        return log.read_text(encoding="utf-8")
