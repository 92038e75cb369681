"""The register of faults, tests/faults.txt: every fault's tests, again and again."""

import os
import re
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field

from proof import trees
from proof.programs import Program
from proof.table import Broken

REGISTER = trees.ROOT / "tests" / "faults.txt"
JOURNEY = "journey"
# Their tests' names tell the connection: in the clear, or over TLS.
_CONNECTED = ("platform_tests", "services_tests")
_KINDS = {"over TLS": re.compile(r"Tls"), "in the clear": re.compile(r"Plain|InTheClear")}


@dataclass
class Fault:
    number: int
    means: str
    title: str
    # Of (program, pattern).
    proofs: list = field(default_factory=list)


def faults(text):
    """The faults of a register, in their order."""
    found = []
    for number, line in enumerate(text.splitlines(), 1):
        words = line.split("#")[0].split()
        if not words:
            continue
        if line[0].isspace():
            found[-1].proofs += [(words[0], pattern) for pattern in words[1:]]
        elif words[0] == str(len(found) + 1) and words[1] in ("both", "tls", "-"):
            found.append(Fault(len(found) + 1, words[1], " ".join(words[2:])))
        else:
            raise Broken(f"{REGISTER.name}:{number}: expected fault {len(found) + 1}, as NUMBER MEANS TITLE.")
    return found


class Register:
    name = "faults"

    def __init__(self, form):
        self._repeat = form.of(10, 1)
        self._faults = faults(REGISTER.read_text(encoding="utf-8"))
        times = "once" if self._repeat == 1 else f"{self._repeat} times"
        self.amount = f"{len(self._faults)} faults, {times}"

    def run(self):
        programs = {program: {pattern for fault in self._faults for used, pattern in fault.proofs if used == program}
                    for program in sorted({program for fault in self._faults for program, _ in fault.proofs})}
        journeys = programs.pop(JOURNEY, set())
        binaries = trees.build("developer", "quorvel", "quorvel-bridge", *programs)
        self._programs = {name: Program(binaries / name) for name in programs}
        self._expect_tests()
        breaches, skipped, count = [], set(), 0
        self._ends = {}
        # Most of them wait most of the time, for servers that are silent and disks.
        with ThreadPoolExecutor(max_workers=os.cpu_count()) as workers:
            runs = {name: workers.submit(self._programs[name].run, sorted(patterns), self._repeat, f"faults-{name}")
                    for name, patterns in programs.items()}
        for name, run in runs.items():
            self._ends[name], log = run.result()
            count += len(self._ends[name])
            breaches += [f"{name} {test}: {dict(ends)}; see {log.relative_to(trees.ROOT)}"
                         for test, ends in self._ends[name].items() if ends["FAILED"]]
            skipped |= {test for test, ends in self._ends[name].items() if ends["SKIPPED"]}
        for journey in sorted(journeys):
            for _ in range(self._repeat):
                trees.call(f"faults-{journey}", ["/usr/bin/python3", trees.ROOT / "tests" / "journeys" / journey,
                                                 "--build", trees.TESTED])
        breaches += [breach for fault in self._faults for breach in self._unproven(fault)]
        if breaches:
            raise Broken("\n".join(breaches))
        remark = f"{count} tests and {len(journeys)} journeys"
        return remark + (f"; skipped here, as their logs explain: {', '.join(sorted(skipped))}" if skipped else "")

    def _expect_tests(self):
        missing = []
        for fault in self._faults:
            for name, pattern in fault.proofs:
                if name == JOURNEY:
                    continue
                if not self._programs[name].matching(pattern):
                    missing.append(f"Fault {fault.number}: {name} has no test {pattern}.")
            if fault.means == "both":
                missing += self._one_sided(fault)
        if missing:
            raise Broken("\n".join(missing))

    def _one_sided(self, fault):
        """What a fault of any connection is shown on only one kind of."""
        shown = set()
        for name, pattern in fault.proofs:
            tests = self._programs[name].matching(pattern) if name in _CONNECTED else []
            kinds = {kind for kind, sign in _KINDS.items() if any(sign.search(test) for test in tests)}
            if len(kinds) == 1:
                yield f"Fault {fault.number}: {name} {pattern} is met {kinds.pop()} only."
            shown |= kinds
        if not shown:
            yield f"Fault {fault.number}: no test is named after its connection."

    def _unproven(self, fault):
        """Where a test has not come to its end as often as it should, as after a crash. Each is run or skipped."""
        for name, pattern in fault.proofs:
            if name == JOURNEY:
                continue
            ends = [self._ends[name].get(test, {}) for test in self._programs[name].matching(pattern)]
            if any(sum(end.values()) != self._repeat for end in ends):
                yield f"Fault {fault.number}: tests of {name} {pattern} have not come to their end."
