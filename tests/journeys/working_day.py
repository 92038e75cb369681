#!/usr/bin/env python3
"""A working day in short: the client is used for minutes while its ID tokens live for seconds. Its window is closed and
brought back, the network goes and returns, and nobody is ever asked to sign in or loses what they typed."""

import argparse
import ctypes
import fcntl
import os
import signal
import socket
import struct
import sys
import time
from pathlib import Path

import hands
from accessibility import Inspector
from bridge import Bridge, NoWayToBridge
from chapters import leaving, staff
from client import Client
from display import Desktop
from expectations import expect, expect_equal
from passwords import DEMO_PASSWORD
from pictures import Album
from stage import DEMO_ADMIN, Stage
from tray import Tray
from waiting import wait_for

# A renewal comes every ten seconds, as it would come every 55 minutes.
TOKEN_LIFETIME_SECONDS = 20
SECTIONS = ["Dashboard", "Sessions", *staff.WORKSPACES, "Settings", "Book Remote Notary"]
DETAILS = "A deed that is written all day long"
MESSAGE = "Half a sentence that waits for"
CITY = "Nowhere in particular"
NO_CONNECTION = "Connection problem. Please check your internet connection and try again."

# From <sched.h>, <linux/sockios.h> and <linux/if.h>.
CLONE_NEWUSER, CLONE_NEWNET = 0x10000000, 0x40000000
GET_FLAGS, SET_FLAGS, IS_UP = 0x8913, 0x8914, 0x1


class WorkingDay:
    """One person's day. `minutes` is how long it lasts."""

    def __init__(self, build, desktop, album, minutes):
        self._minutes = minutes
        bridge = Bridge(build, desktop.folder / "bridge", desktop,
                        ("--id-token-lifetime", str(TOKEN_LIFETIME_SECONDS)))
        client = Client(build, desktop, bridge)
        self.stage = Stage(client, bridge, album, Inspector(), Tray(desktop), "light", set())

    def run(self):
        stage = self.stage
        stage.open("Book Remote Notary")
        stage.sign_in(DEMO_ADMIN, DEMO_PASSWORD)
        stage.screen.wait_gone("password text", "Password")
        stage.person.fill("What needs to be notarized?", DETAILS)
        ends = time.monotonic() + 60 * self._minutes
        rounds = 0
        while time.monotonic() < ends or rounds < 2:
            rounds += 1
            self._tell(f"round {rounds}")
            for part in (self._through_all_sections, self._close_and_come_back, self._without_network,
                         self._message_through_the_day, self._edit_through_the_day):
                part()
        self._tell("quitting")
        leaving.quit_from_tray(stage)

    def _tell(self, what):
        print(f"{time.monotonic():9.1f} s  {what}", flush=True)

    def _expect_signed_in(self):
        expect(not self.stage.screen.find("password text", "Password"), "A sign-in was asked for.")
        expect("QuorvelMac.authUser" in self.stage.client.preferences(), "The client has forgotten who it works for.")

    def _let_a_token_end(self):
        """However many are issued meanwhile."""
        ends = self.stage.bridge.newest_token_end()
        wait_for(lambda: time.time() > ends, "a token to end")

    def _through_all_sections(self):
        for section in SECTIONS:
            self.stage.open(section)
            self._expect_signed_in()
            expect(not self.stage.screen.find("alert", None), f"{section} opens with an alert.")
        self._expect_details()

    def _expect_details(self):
        expect_equal(self.stage.screen.wait("text", "What needs to be notarized?").text, DETAILS,
                     "what was written of the booking")

    def _close_and_come_back(self):
        """By the tray and by a second start, each later than any token of before has lived."""
        stage = self.stage
        stage.open("Sessions")
        for come_back, section in ((lambda: stage.tray.choose("Book Remote Notary"), "Book Remote Notary"),
                                   (lambda: stage.client.start_again("--action=sessions"), "Sessions")):
            hands.close_active_window()
            stage.client.wait_until_closed()
            self._let_a_token_end()
            come_back()
            stage.wait_for_section(section)
            self._expect_signed_in()

    def _without_network(self):
        """It is away for longer than a token lives."""
        stage = self.stage
        stage.open("Sessions")
        stage.bridge.kill()
        self._let_a_token_end()
        hands.press("F5")
        # The list and the session in front fail each for itself.
        alert = wait_for(lambda: stage.screen.find("alert", None), "an alert")
        while alert:
            expect(alert.name in ("Cannot Load Sessions", "Cannot Load Session"), f"The alert says {alert.name}.")
            stage.person.read_alert(alert.name, NO_CONNECTION)
            alert = stage.screen.find("alert", None)
        self._expect_signed_in()
        stage.bridge.start()
        hands.press("F5")
        stage.wait_until_loaded()
        expect(stage.rows("Sessions"), "The list is empty after the network has come back.")
        expect(not stage.screen.find("alert", None), "The network is back, and there is an alert.")
        self._expect_signed_in()

    def _message_through_the_day(self):
        """Written slowly: the tokens of its beginning are over when it is sent."""
        stage = self.stage
        stage.open("Sessions")
        stage.person.click_on(wait_for(lambda: stage.rows("Sessions"), "sessions")[0])
        stage.wait_until_loaded()
        editor = stage.person.fill("New Message", MESSAGE)
        self._let_a_token_end()
        expect_equal(editor.text, MESSAGE, "the message that is being written")
        hands.press("ctrl+Return")
        wait_for(lambda: editor.text == "", "the message to be sent")
        self._expect_signed_in()

    def _edit_through_the_day(self):
        """The window is closed over it and brought back."""
        stage = self.stage
        stage.open("Settings")
        wait_for(lambda: stage.screen.wait("text", "Full Name").text, "the profile")
        before = stage.screen.wait("text", "City").text
        stage.person.fill("City", CITY)
        hands.close_active_window()
        stage.client.wait_until_closed()
        self._let_a_token_end()
        stage.client.start_again()
        stage.wait_for_section("Settings")
        expect_equal(stage.screen.wait("text", "City").text, CITY, "what was typed before the window was closed")
        stage.person.press_button("Save Profile")
        stage.person.read_alert("Saved", "Your profile was updated.")
        stage.person.fill("City", before)
        stage.person.press_button("Save Profile")
        stage.person.read_alert("Saved", "Your profile was updated.")
        self._expect_signed_in()


def take_own_network():
    """The port that the client is built for is free there, whoever listens on this machine."""
    kernel = ctypes.CDLL(None, use_errno=True)
    flags = CLONE_NEWNET if os.getuid() == 0 else CLONE_NEWNET | CLONE_NEWUSER
    if kernel.unshare(flags) != 0:
        print("There is no network of the day's own here, so it shares the machine's.", flush=True)
        return
    with socket.socket() as any_socket:
        loopback = struct.pack("16sh14x", b"lo", 0)
        state = fcntl.ioctl(any_socket, GET_FLAGS, loopback)
        now = struct.unpack_from("16sh", state)[1]
        fcntl.ioctl(any_socket, SET_FLAGS, struct.pack("16sh14x", b"lo", now | IS_UP))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True, help="the build tree that holds bin/quorvel")
    parser.add_argument("--minutes", type=float, default=5, help="how long the day lasts (default: 5)")
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    take_own_network()
    with Desktop() as desktop:
        album = Album((arguments.build / "working-day").resolve(), desktop.frame_buffer)
        day = None
        try:
            day = WorkingDay(arguments.build.resolve(), desktop, album, arguments.minutes)
            day.run()
        except NoWayToBridge as obstacle:
            sys.exit(str(obstacle))
        except Exception:
            print(f"The screen when it failed: {album.take_failure()}", file=sys.stderr)
            if day and day.stage.client.is_running():
                print(day.stage.screen.dump(), file=sys.stderr)
            raise


if __name__ == "__main__":
    main()
