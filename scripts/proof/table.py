"""What came of every part."""

import time
from dataclasses import dataclass


class Broken(Exception):
    """A part does not hold; says in which way, a line for each."""


class NotRun(Exception):
    """A part cannot be had here; says why in one sentence."""


@dataclass(frozen=True)
class Line:
    name: str
    amount: str
    result: str
    seconds: float
    remarks: str


class Table:
    """Runs the parts one after the other and keeps a line of each."""

    def __init__(self):
        self._lines = []

    def run(self, part):
        print(f"== {part.name}: {part.amount}", flush=True)
        started = time.monotonic()
        try:
            result, remarks = "holds", part.run() or ""
        except NotRun as reason:
            result, remarks = "not run", str(reason)
        except Broken as breach:
            result, remarks = "FAILS", str(breach)
        if remarks:
            print(remarks, flush=True)
        self._lines.append(Line(part.name, part.amount, result, time.monotonic() - started, remarks))

    def holds(self):
        return all(line.result != "FAILS" for line in self._lines)

    def print(self):
        widths = [max(len(row[column]) for row in self._rows()) for column in range(3)]
        print()
        for row in self._rows():
            print("  ".join(text.ljust(width) for text, width in zip(row, widths)) + f"  {row[3]:>8}")
        for line in self._lines:
            if line.result == "not run":
                print(f"Not run: {line.name}. {line.remarks}")

    def _rows(self):
        return [("what", "how much", "result", "time"),
                *((line.name, line.amount, line.result, _duration(line.seconds)) for line in self._lines)]


def _duration(seconds):
    return f"{int(seconds) // 60}:{int(seconds) % 60:02}"
