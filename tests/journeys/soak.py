#!/usr/bin/env python3
"""The client, used without a pause: section after section, lists searched and read, a message begun, the window closed
and brought back. Its memory is read at the same point of every round, and must not grow once it is warm."""

import argparse
import csv
import re
import signal
import statistics
import sys
import time
from pathlib import Path

import hands
from accessibility import Inspector
from bridge import Bridge, NoWayToBridge
from chapters import leaving
from client import Client
from display import Desktop
from expectations import expect
from passwords import DEMO_PASSWORD
from pictures import Album
from stage import DEMO_ADMIN, Stage
from tray import Tray
from waiting import wait_for
from working_day import SECTIONS, take_own_network

# Renewed under way, as on a long day.
TOKEN_LIFETIME_SECONDS = 60
# Of all rounds, those that fill caches.
WARM_UP = 0.2
LEAST_ROUNDS = 5
MOST_GROWTH = 0.05
# So few rounds do not fill all caches; what they show is a leak that is plain to see.
FEW_ROUNDS = 30
MOST_GROWTH_OF_FEW = 0.15
WIDTH, HEIGHT = 72, 12


class Soak:
    """One run. `curve` is a list of (seconds, KiB), one for each round; `file` gets them as they come."""

    def __init__(self, build, desktop, album, file):
        bridge = Bridge(build, desktop.folder / "bridge", desktop,
                        ("--id-token-lifetime", str(TOKEN_LIFETIME_SECONDS)))
        client = Client(build, desktop, bridge)
        self.stage = Stage(client, bridge, album, Inspector(), Tray(desktop), "light", set())
        self.curve = []
        self._writer = csv.writer(file)
        self._writer.writerow(("seconds", "private_dirty_kib"))

    def run(self, minutes):
        self.stage.enter(DEMO_ADMIN)
        began = time.monotonic()
        while len(self.curve) < LEAST_ROUNDS or time.monotonic() - began < 60 * minutes:
            self._round()
            self.curve.append((round(time.monotonic() - began), self._private_kib()))
            self._writer.writerow(self.curve[-1])
        leaving.quit_from_tray(self.stage)

    def _round(self):
        for section in SECTIONS:
            self.stage.open(section)
            expect(not self.stage.screen.find("alert", None), f"{section} opens with an alert.")
        self._read_sessions()
        hands.close_active_window()
        self.stage.client.wait_until_closed()
        self.stage.tray.choose("Sessions")
        self.stage.wait_for_section("Sessions")
        # Before it is in front, a click goes to whatever is there.
        wait_for(lambda: hands.active_process() == self.stage.client.process.pid, "the window to come to the front")
        self.stage.open("Dashboard")

    def _read_sessions(self):
        stage = self.stage
        stage.open("Sessions")
        rows = wait_for(lambda: stage.rows("Sessions"), "sessions")
        for row in rows[:3]:
            stage.person.click_on(row)
            stage.wait_until_loaded()
        stage.person.fill("New Message", "Half a sentence")
        stage.person.fill("New Message", "")
        hands.press("F5")
        stage.wait_until_loaded()

    def _private_kib(self):
        """What the client has written to memory and shares with nobody."""
        rollup = Path(f"/proc/{self.stage.client.process.pid}/smaps_rollup").read_text(encoding="ascii")
        return int(re.search(r"^Private_Dirty: +(\d+) kB", rollup, re.MULTILINE)[1])


def growth(curve):
    """Of the mean of the last half over that of the first, as a share, without the warm-up."""
    warm = [kib for _, kib in curve][max(1, int(len(curve) * WARM_UP)):]
    first, last = warm[:len(warm) // 2], warm[len(warm) // 2:]
    return statistics.mean(last) / statistics.mean(first) - 1


def plot(curve):
    """The curve for a terminal: time from left to right, MiB upwards from zero."""
    top = max(kib for _, kib in curve) or 1
    columns = [curve[index * len(curve) // WIDTH][1] for index in range(WIDTH)]
    lines = [f"{top * level / HEIGHT / 1024:7.1f} MiB |"
             + "".join("#" if kib * HEIGHT >= top * (level - 0.5) else " " for kib in columns).rstrip()
             for level in range(HEIGHT, 0, -1)]
    return "\n".join([*lines, " " * 12 + "+" + "-" * WIDTH, f"{'':13}{len(curve)} rounds in {curve[-1][0]} s"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True, help="the build tree that holds bin/quorvel")
    parser.add_argument("--minutes", type=float, default=60, help="how long it goes on (default: 60)")
    parser.add_argument("--output", type=Path, required=True,
                        help="where the curve goes: NAME.csv, and NAME.txt to see")
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    build, output = arguments.build.resolve(), arguments.output.resolve()
    take_own_network()
    output.parent.mkdir(parents=True, exist_ok=True)
    with Desktop() as desktop, output.with_suffix(".csv").open("w", encoding="ascii", newline="", buffering=1) as file:
        album = Album(output.parent / "soak", desktop.frame_buffer)
        try:
            soak = Soak(build, desktop, album, file)
            soak.run(arguments.minutes)
        except NoWayToBridge as obstacle:
            sys.exit(str(obstacle))
        except Exception:
            print(f"The screen when it failed: {album.take_failure()}", file=sys.stderr)
            raise
    output.with_suffix(".txt").write_text(plot(soak.curve) + "\n", encoding="ascii")
    grown = growth(soak.curve)
    print(plot(soak.curve))
    print(f"Growth: {grown:+.1%} from the first half to the last, over {len(soak.curve)} rounds")
    most = MOST_GROWTH if len(soak.curve) > FEW_ROUNDS else MOST_GROWTH_OF_FEW
    if grown >= most:
        sys.exit(f"It must stay below {most:.0%}.")


if __name__ == "__main__":
    main()
