#!/usr/bin/env python3
"""Whoever works with the client and has it end under them without a warning: killed as soon as its tokens have been
replaced, and crashed. Their sign-in lives on, and nothing that is theirs lies where others read."""

import argparse
import os
import resource
import signal
import sys
from pathlib import Path

import hands
from accessibility import Inspector
from bridge import Bridge, NoWayToBridge
from chapters import leaving, signing_in
from client import Client, Conditions
from display import Desktop
from expectations import expect, expect_equal
from passwords import ALL_PASSWORDS
from pictures import Album
from stage import DEMO_CLIENT, Stage
from tray import Tray
from waiting import wait_for
from working_day import take_own_network

KILLS = 5
MESSAGE = "Something that nobody else is to read"
# The bridge has stored the new tokens, and their answer is on its way or just there.
SOON_SECONDS = 0.001
EVERYTHING_LOGGED = {"QT_LOGGING_RULES": "*=true"}


class SuddenEnds:
    """One run. The client works in `folder`, where the system would leave what is left of it."""

    def __init__(self, build, desktop, album):
        self._build, self._desktop, self._album = build, desktop, album
        self._folder = desktop.folder / "work"
        self._folder.mkdir()
        os.chdir(self._folder)
        # As where developers have allowed it; the client is to forbid it for itself.
        most = resource.getrlimit(resource.RLIMIT_CORE)[1]
        resource.setrlimit(resource.RLIMIT_CORE, (most, most))
        self._bridge = Bridge(build, desktop.folder / "bridge", desktop)
        self._secrets = set()

    def run(self):
        stage = self._start(Conditions(environment=EVERYTHING_LOGGED))
        stage.enter(DEMO_CLIENT)
        signing_in.expect_remembered(stage, DEMO_CLIENT)
        self._write_message(stage)
        leaving.quit_from_tray(stage)
        for _ in range(KILLS):
            self._kill_after_renewal()
        stage = self._start()
        stage.open("Sessions")
        expect(not stage.screen.find("password text", "Password"), "A sign-in was asked for.")
        stage.screen.wait_reads("Priya Raman")
        signing_in.expect_remembered(stage, DEMO_CLIENT)
        self._crash(stage)
        self._expect_discreet(stage)

    def _start(self, conditions=Conditions()):
        client = Client(self._build, self._desktop, self._bridge, conditions)
        return Stage(client, self._bridge, self._album, Inspector(), Tray(self._desktop), "light", self._secrets)

    def _write_message(self, stage):
        stage.open("Sessions")
        stage.person.click_on(wait_for(lambda: stage.rows("Sessions"), "sessions")[0])
        stage.wait_until_loaded()
        editor = stage.person.fill("New Message", MESSAGE)
        hands.press("ctrl+Return")
        wait_for(lambda: editor.text == "", "the message to be sent")

    def _kill_after_renewal(self):
        """A start brings the window, and the window new tokens."""
        before = self._bridge.newest_token_end()
        client = Client(self._build, self._desktop, self._bridge, Conditions(opens_window=False))
        wait_for(lambda: self._bridge.newest_token_end() > before, "new tokens", SOON_SECONDS)
        client.process.kill()
        client.process.wait()
        self._secrets.update(signing_in.tokens_in(client.preferences()))

    def _crash(self, stage):
        stage.client.process.send_signal(signal.SIGABRT)
        expect_equal(stage.client.process.wait(timeout=30), -signal.SIGABRT, "how the client ended")
        left = [file.name for file in self._folder.iterdir()]
        expect(not left, f"The crash left {left} behind.")

    def _expect_discreet(self, stage):
        printed = stage.client.printed()
        told = [secret for secret in {MESSAGE, *ALL_PASSWORDS, *self._secrets} if secret.encode() in printed]
        expect(not told, f"The client printed {len(told)} secrets.")
        expect(b"qt." in printed, "Nothing was logged, so nothing could be told.")
        expect(len(self._secrets) >= 2, "No token was seen, so none could be missed.")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True, help="the build tree that holds bin/quorvel")
    build = parser.parse_args().build.resolve()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    take_own_network()
    with Desktop() as desktop:
        album = Album(build / "sudden-ends", desktop.frame_buffer)
        try:
            SuddenEnds(build, desktop, album).run()
        except NoWayToBridge as obstacle:
            sys.exit(str(obstacle))
        except Exception:
            print(f"The screen when it failed: {album.take_failure()}", file=sys.stderr)
            raise


if __name__ == "__main__":
    main()
