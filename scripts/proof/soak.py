"""The client in use for an hour, and what its memory does."""

from proof import trees


class Soak:
    name = "soak"

    def __init__(self, form):
        self._seconds = form.of(3600, 30)
        self.amount = f"{self._seconds} s of one client in use"

    def run(self):
        trees.build("developer", "quorvel", "quorvel-bridge")
        log = trees.call("soak", ["/usr/bin/python3", trees.ROOT / "tests" / "journeys" / "soak.py", "--build",
                                  trees.TESTED, "--minutes", str(self._seconds / 60), "--output", trees.LOGS / "curve"])
        return log.read_text(encoding="utf-8")
