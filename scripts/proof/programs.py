"""The test programs: which tests they hold, and what became of those that ran."""

import re
import subprocess
from collections import Counter
from fnmatch import fnmatchcase
from pathlib import Path

from proof import trees
from proof.table import Broken, NotRun

# A test's last line; a summary repeats the names without a time.
_END = re.compile(r"\[ +(OK|FAILED|SKIPPED) +\] ([^\s,]+)(?:, where .*)? \(\d+ ms\)\s*$")


class Program:
    """A program made with GoogleTest."""

    def __init__(self, path: Path):
        self.path = path
        self._tests = None

    def matching(self, pattern):
        """The names of its tests that fit a pattern of GoogleTest's."""
        if self._tests is None:
            self._tests = list(self._list())
        return [test for test in self._tests if fnmatchcase(test, pattern.replace("[", "[[]"))]

    def run(self, patterns, repeat=1, name=None, **variables):
        """Runs the tests that fit and returns what became of each, as {test: Counter of OK, FAILED, SKIPPED}, and the
        path of the log. What a crash left unfinished has no entry; the crash has one of its own."""
        log = trees.LOGS / f"{name or self.path.name}.log"
        with log.open("wb") as output:
            ended = subprocess.run(
                [self.path, f"--gtest_filter={':'.join(patterns)}", f"--gtest_repeat={repeat}"], cwd=trees.ROOT,
                env=trees.ENVIRONMENT | variables, stdout=output, stderr=subprocess.STDOUT, check=False)
        ends = {}
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            if end := _END.search(line):
                ends.setdefault(end[2], Counter())[end[1]] += 1
        if ended.returncode not in (0, 1):  # 1 says that a test has failed
            ends[f"(its end, with {ended.returncode})"] = Counter(FAILED=1)
        return ends, log

    def prove(self, pattern, name, **variables):
        """Runs the tests of one pattern, each of which must pass. Returns the path of the log."""
        tests = self.matching(pattern)
        if not tests:
            raise Broken(f"{self.path.name} has no test {pattern}.")
        ends, log = self.run([pattern], name=name, **variables)
        if all(ends.get(test, {}).get("SKIPPED") for test in tests):
            raise NotRun(f"{self.path.name} skips it here; {log.relative_to(trees.ROOT)} says why.")
        broken = [test for test in {*tests, *ends} if not ends.get(test, {}).get("OK")]
        if broken:
            raise Broken(f"{', '.join(broken)}: see {log.relative_to(trees.ROOT)}\n{trees.tail(log)}")
        return log

    def _list(self):
        listed = subprocess.run([self.path, "--gtest_list_tests"], env=trees.ENVIRONMENT, check=True,
                                capture_output=True, text=True, errors="replace").stdout
        suite = ""
        for line in listed.splitlines():
            text = line.split("#")[0].rstrip()
            if text.startswith("  "):
                yield suite + text.strip()
            elif text.endswith("."):
                suite = text
