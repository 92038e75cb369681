#!/usr/bin/env python3
"""Times the start of the client up to its first painted frame, in turn with an empty window's, on a desktop that
nobody sees. Prints the medians and the median of the ratios pair by pair."""

import resource
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "journeys"))
from display import Desktop  # noqa: E402  (the path has to be set first)

PAIRS = 15
WARM_UPS = 2


def run(program, environment):
    """Seconds until the program has ended, and the seconds of processor time it took."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    started = time.perf_counter()
    subprocess.run([program], env=environment, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wall = time.perf_counter() - started
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return wall, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def main():
    folder = Path(sys.argv[1])
    client, empty = folder / "first_paint_client", folder / "first_paint_empty"
    with Desktop() as desktop:
        pairs = [(run(client, desktop.environment), run(empty, desktop.environment))
                 for _ in range(PAIRS + WARM_UPS)][WARM_UPS:]
    for index, name in enumerate(("wall", "processor")):
        ours = [pair[0][index] for pair in pairs]
        theirs = [pair[1][index] for pair in pairs]
        ratios = [a / b for a, b in zip(ours, theirs)]
        print(f"{name:>9}: client {statistics.median(ours) * 1000:6.1f} ms, empty window "
              f"{statistics.median(theirs) * 1000:6.1f} ms, ratio {statistics.median(ratios):.2f} "
              f"({min(ratios):.2f} to {max(ratios):.2f})")


if __name__ == "__main__":
    main()
