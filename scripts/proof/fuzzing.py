"""The fuzzers, a while each."""

import re

from proof import trees
from proof.table import Broken

SEEDS = trees.ROOT / "fuzz" / "seeds"


class Fuzzers:
    name = "fuzzers"

    def __init__(self, form):
        self._seconds = form.of(600, 5)
        self._names = sorted(folder.name for folder in SEEDS.iterdir())
        self.amount = f"{len(self._names)} fuzzers, {self._seconds} s each"

    def run(self):
        log = trees.call("fuzzers", [trees.ROOT / "scripts" / "fuzz", str(self._seconds), *self._names])
        ends = re.findall(r"^#(\d+)\s+DONE", log.read_text(encoding="utf-8"), re.MULTILINE)
        if len(ends) != len(self._names):
            raise Broken(f"{len(ends)} of {len(self._names)} fuzzers have told their end:\n{trees.tail(log)}")
        return f"{sum(map(int, ends)):,} inputs, no finding"
