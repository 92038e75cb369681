"""The build trees that a proof works with, and the folder where it leaves its logs."""

import os
import subprocess
from pathlib import Path

from proof.table import Broken

ROOT = Path(__file__).resolve().parent.parent.parent
TESTED = ROOT / "build" / "test-gcc"
THREADS = ROOT / "build" / "test-threads"
LOGS = ROOT / "build" / "proof"
# As CTest starts the tests: whatever desktop and time zone this machine has.
ENVIRONMENT = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "TZ": "UTC"}


def install():
    """What a part needs besides the project itself."""
    LOGS.mkdir(parents=True, exist_ok=True)
    subprocess.run([ROOT / "scripts" / "setup", "test"], check=True)


def build(preset, *targets):
    """Of the tree of a preset in CMakePresets.json."""
    tree = {"developer": TESTED, "threads": THREADS}[preset]
    if not (tree / "build.ninja").exists():
        call(f"build-{preset}", ["cmake", "--preset", preset])
    call(f"build-{preset}", ["cmake", "--build", tree, "--target", *targets])
    return tree / "bin"


def call(name, command, **variables):
    """Runs a program to its end, and keeps all that it says in the log of this name. Returns the log's path."""
    log = LOGS / f"{name}.log"
    with log.open("wb") as output:
        ended = subprocess.run(command, cwd=ROOT, env=ENVIRONMENT | variables, stdout=output,
                               stderr=subprocess.STDOUT, check=False)
    if ended.returncode != 0:
        raise Broken(f"{Path(command[0]).name} ended with {ended.returncode}; see {log.relative_to(ROOT)}:\n"
                     + tail(log))
    return log


def tail(log, lines=25):
    return "\n".join(log.read_text(encoding="utf-8", errors="replace").splitlines()[-lines:])
