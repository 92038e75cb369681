"""The tests under tools that watch every access to memory."""

from proof import trees
from proof.programs import Program
from proof.table import Broken

SUPPRESSIONS = trees.ROOT / "scripts" / "proof" / "threads.supp"

OPTIONS = "ignore_noninstrumented_modules=1 halt_on_error=0 exitcode=66 second_deadlock_stack=1 die_after_fork=0"


class Threads:
    """The thread sanitizer. Qt and the other libraries are not built with it, so that it cannot see what orders their
    threads; what it reports from within them is left out, and so is what the suppressions name."""

    name = "threads"

    def __init__(self, form):
        self._programs = ["bridge_tests"] if form.is_short else ["bridge_tests", "platform_tests", "services_tests"]
        self.amount = f"{', '.join(self._programs)} under the thread sanitizer"

    def run(self):
        binaries = trees.build("threads", *self._programs)
        breaches, count = [], 0
        for name in self._programs:
            # A file for each process: the children of a test report too.
            reports = trees.LOGS / f"threads-{name}.report"
            for old in trees.LOGS.glob(f"{reports.name}.*"):
                old.unlink()
            options = f"{OPTIONS} suppressions={SUPPRESSIONS} log_path={reports}"
            ends, log = Program(binaries / name).run(["*"], name=f"threads-{name}", TSAN_OPTIONS=options)
            breaches += [f"{name}: {what}" for report in trees.LOGS.glob(f"{reports.name}.*")
                         for what in _summaries(report)]
            breaches += [f"{name}: {test} has failed" for test, end in ends.items() if end["FAILED"]]
            if " ran. (" not in log.read_text(encoding="utf-8", errors="replace"):
                breaches.append(f"{name} has not come to its end:\n{trees.tail(log)}")
            count += len(ends)
        if breaches:
            raise Broken("\n".join(sorted(set(breaches))))
        return f"{count} tests, no race"


def _summaries(report):
    text = report.read_text(encoding="utf-8", errors="replace")
    return {f"{line}; see {report.relative_to(trees.ROOT)}" for line in text.splitlines() if line.startswith("SUMMARY")}


class Memory:
    """Valgrind over the models: what reads the bytes of strangers."""

    name = "memory"

    def __init__(self, form):
        del form
        self.amount = "models_tests under valgrind"

    def run(self):
        binaries = trees.build("developer", "models_tests")
        # Valgrind cannot follow a test that is to end its process into the fork, and counts its end as a loss. Its own
        # allocator tells a test nothing about the memory that a document takes.
        log = trees.call("memory", ["valgrind", "--error-exitcode=9", "--leak-check=full", "--show-leak-kinds=definite",
                                    "--errors-for-leak-kinds=definite", binaries / "models_tests", "--gtest_brief=1",
                                    "--gtest_filter=-*DeathTest*:*JSONMemory*"])
        return log.read_text(encoding="utf-8", errors="replace").split("ERROR SUMMARY: ")[-1].strip()
