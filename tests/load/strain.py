#!/usr/bin/env python3
"""What one client waits for the bridge, alone and beside others who strain it, in turn within one run. Fails when a
request fails; how long one takes is for the reader to judge, by the ratios more than by the times."""

import argparse
import gc
import math
import statistics
import sys
import time
from pathlib import Path

import loads
from server import Server, ask

SESSIONS = 10_000
# Between two requests of the client that is measured.
PAUSE_SECONDS = 0.02
STRAINS = {
    f"{loads.CLIENTS} clients and {loads.IDLE} idle connections": loads.clients_and_idle_connections,
    f"{loads.SLOW} bodies of a byte a second": loads.slow_bodies,
    f"{loads.LISTS} lists of {SESSIONS:,} sessions at once": loads.large_lists,
}


class Measured:
    """What one client saw in the phases of one kind, in milliseconds: reads on a connection that is open, and on a
    fresh one."""

    def __init__(self):
        self.open, self.fresh = [], []
        self.failures = 0
        self.others = self.others_failures = 0

    def measure(self, server, token, seconds):
        headers = {"Authorization": f"Bearer {token}"}
        kept = server.connection()
        # Not part of what is measured.
        ask(kept, "GET", "/profile", headers)
        ends = time.monotonic() + seconds
        while time.monotonic() < ends:
            self._time(kept, headers, self.open)
            fresh = server.connection()
            self._time(fresh, headers, self.fresh)
            fresh.close()
            time.sleep(PAUSE_SECONDS)
        kept.close()

    def _time(self, connection, headers, times):
        began = time.perf_counter()
        try:
            ask(connection, "GET", "/profile", headers)
            times.append((time.perf_counter() - began) * 1000)
        except Exception as error:  # whatever it is, a request has failed
            connection.close()
            self.failures += 1
            print(f"A request failed: {error}", file=sys.stderr)


def run(server, token, rounds, seconds):
    """What was measured, by what went on beside it: None for nothing."""
    measured = {strain: Measured() for strain in (None, *STRAINS)}
    for _ in range(rounds):
        for strain, work in STRAINS.items():
            for beside, load_work in ((None, loads.nothing), (strain, work)):
                phase = measured[beside]
                with loads.Load(load_work, server, token) as load:
                    phase.measure(server, token, seconds)
                phase.others += load.done
                phase.others_failures += load.failures
    return measured


def _percentile(times, share):
    return sorted(times)[math.ceil(share * len(times)) - 1]


def table(measured):
    yield "| beside | open connection: median | p99 | worst | fresh: median | p99 | worst | p99 to alone |"
    yield "|---|---|---|---|---|---|---|---|"
    alone = measured[None]
    for strain, seen in measured.items():
        columns = [f"{value:.1f} ms" for times in (seen.open, seen.fresh)
                   for value in (statistics.median(times), _percentile(times, 0.99), max(times))]
        ratios = [_percentile(times, 0.99) / _percentile(before, 0.99)
                  for times, before in ((seen.open, alone.open), (seen.fresh, alone.fresh))]
        yield f"| {strain or 'nothing'} | {' | '.join(columns)} | {ratios[0]:.1f} and {ratios[1]:.1f} |"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bridge", type=Path, required=True, help="the program")
    parser.add_argument("--seconds", type=float, default=20, help="how long each phase lasts (default: 20)")
    parser.add_argument("--rounds", type=int, default=3, help="how often each phase comes (default: 3)")
    arguments = parser.parse_args()
    gc.disable()
    with Server(arguments.bridge, SESSIONS) as server:
        token = server.token()
        measured = run(server, token, arguments.rounds, arguments.seconds)
        print("\n".join(table(measured)))
        requests = sum(len(seen.open) + len(seen.fresh) for seen in measured.values())
        others = sum(seen.others for seen in measured.values())
        print(f"{requests} requests measured beside {others} of others; the server took {server.peak_mib()} MiB at "
              "most")
        failures = {strain: (seen.failures, seen.others_failures) for strain, seen in measured.items()
                    if seen.failures or seen.others_failures}
        for strain, (own, theirs) in failures.items():
            print(f"Beside {strain or 'nothing'}: {own} requests of the client failed, {theirs} of the others.")
        if failures:
            sys.exit(1)
        if not server.is_running:
            sys.exit("The server has ended.")


if __name__ == "__main__":
    main()
