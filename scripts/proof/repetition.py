"""Tests that do by the hundred or thousand what they usually do a few times."""

from proof import trees
from proof.programs import Program
from proof.table import Broken, NotRun


class FaultedWrites:
    name = "writes"

    def __init__(self, form):
        self._writes = form.of(10_000, 300)
        self.amount = f"{self._writes:,} writes in the clear and as many over TLS, each with a fault"

    def run(self):
        binaries = trees.build("developer", "platform_tests")
        Program(binaries / "platform_tests").prove("*FaultedWrites.TakeEffectOnce/*", "writes",
                                                   QUORVEL_FAULTED_WRITES=str(self._writes))
        return "every write took effect once"


class PreferencesKilled:
    name = "preferences"

    def __init__(self, form):
        self._rounds = form.of(1_000, 60)
        self.amount = f"{self._rounds:,} kills while preferences are saved"

    def run(self):
        binaries = trees.build("developer", "platform_tests")
        Program(binaries / "platform_tests").prove("SettingsCrash.LeavesTheOldOrTheNewRecordWhole", "preferences",
                                                   QUORVEL_KILL_ROUNDS=str(self._rounds))
        return "every record was whole"


class BridgeKilled:
    name = "kills"

    def __init__(self, form):
        self._rounds = form.of(200, 10)
        self._writers = form.of(100, 20)
        self.amount = f"{self._rounds} kills of the bridge under {self._writers} writers"

    def run(self):
        binaries = trees.build("developer", "bridge_tests")
        log = Program(binaries / "bridge_tests").prove(
            "Process.KilledInTheMiddleItHasEverythingItAcknowledged", "kills",
            QUORVEL_BRIDGE_KILLS=str(self._rounds), QUORVEL_BRIDGE_WRITERS=str(self._writers))
        told = [line for line in log.read_text(encoding="utf-8").splitlines() if line.startswith("Acknowledged")]
        return told[0]


class JsonSuite:
    name = "json"
    _PATTERN = "*JSON*Suite.*"

    def __init__(self, form):
        self._given = form.json_suite
        # The collection that the test is made for keeps them in a folder of this name.
        self._folder = next((folder for folder in (self._given, self._given / "test_parsing")
                             if any(folder.glob("*.json"))), None) if self._given else None
        count = sum(1 for _ in self._folder.glob("*.json")) if self._folder else 0
        self.amount = f"{count} JSON documents"

    def run(self):
        if not self._given:
            raise NotRun("No folder was given with --json-suite.")
        if not self._folder:
            raise Broken(f"{self._given} holds no .json file.")
        binaries = trees.build("developer", "models_tests")
        Program(binaries / "models_tests").prove(self._PATTERN, "json",
                                                 QUORVEL_JSON_TEST_SUITE=str(self._folder.resolve()))
