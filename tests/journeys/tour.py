#!/usr/bin/env python3
"""A journey through the real client against the real local bridge, on a virtual display, by mouse and keyboard. Every
step is checked against what the bridge stored and what a screen reader would read, and leaves pictures."""

import argparse
import signal
import sys
import time
from functools import partial
from pathlib import Path

from accessibility import Inspector
from bridge import Bridge, NoWayToBridge
from chapters import (booking, business, conversation, desktops, glimpses, heard, leaving, looks, notary, office,
                      people, records, sessions, settings, signing_in, staff, today, trays)
from client import Client, Conditions
from display import Desktop
from pictures import Album
from portal import Portal
from stage import DEMO_BUSINESS, DEMO_NOTARY, Stage
from tray import Tray


class Journey:
    """One run. `stage` is None until the client is up."""

    def __init__(self, build, album, desktop):
        self._build = build
        self._album = album
        self._desktop = desktop
        self._inspector = Inspector()
        self._started = time.monotonic()
        self._secrets = set()
        self.stage = None

    def run(self):
        bridge = Bridge(self._build, self._desktop.folder / "bridge", self._desktop)
        tray = Tray(self._desktop)
        self._meet(bridge, tray, "light")
        for title, chapter in self._chapters():
            print(f"{time.monotonic() - self._started:6.1f} s  {title}", flush=True)
            chapter(self.stage)

    def _chapters(self):
        return [*self._as_client(), *_as_notary(), *_as_both(), *_as_business(), *self._in_the_office(),
                *self._among_trays(), *self._at_the_end()]

    def _as_client(self):
        files = booking.make_files(self._desktop.home)
        more_files = conversation.make_files(self._desktop.home)
        return [
            ("the first start", signing_in.first_start),
            ("nobody's menu in the tray", trays.for_nobody),
            ("the sign-in gate", signing_in.gate),
            ("the gate in other sizes, light", looks.sign_in_sizes),
            ("a wrong password", signing_in.wrong_password),
            ("a client signs in", signing_in.client_signs_in),
            ("a client's menu in the tray", trays.for_client),
            ("an incomplete booking", booking.missing_information),
            ("a booking is filled in", booking.fill),
            ("and found again after a look elsewhere", booking.come_back),
            ("files are attached", lambda stage: booking.attach(stage, files)),
            ("the bridge is away", booking.without_bridge),
            ("the bridge dies during the upload", booking.interrupted),
            ("the booking is submitted", lambda stage: booking.submit(stage, files)),
            ("the new session in the list", booking.see_sessions),
            ("search and filter", lambda stage: sessions.find_booked(stage, booking.FORM)),
            ("a message is kept back", conversation.keep_unsent),
            ("a message is sent", conversation.send_message),
            ("documents for the session", lambda stage: conversation.upload(stage, more_files)),
            ("settings, light", looks.choose_light),
            ("a client's screens, light", looks.client_screens),
            ("what is there for a moment, light", glimpses.see),
            ("settings, dark", looks.choose_dark),
            ("a client's screens, dark", looks.client_screens),
            ("what is there for a moment, dark", glimpses.see),
            ("signing out", staff.sign_out),
            ("nobody's screens, dark", looks.signed_out_screens),
            ("the gate in other sizes, dark", looks.sign_in_sizes),
        ]

    def _in_the_office(self):
        return [
            ("an admin signs in", staff.admin_signs_in),
            ("the office's menu in the tray", trays.for_office),
            ("another workspace", staff.switch_role),
            ("the office's dashboard", office.see_dashboard),
            ("a session is assigned", office.assign),
            ("a session is deleted", office.delete),
            ("a record is edited", records.edit),
            ("a record is deleted", records.delete),
            ("accounts are searched", people.search_users),
            ("an account is edited", people.edit_user),
            ("unsaved edits", people.leave_unfinished),
            ("an account is deleted", people.delete_user),
            ("a notary is edited", people.edit_notary),
            ("a notary is deleted", people.delete_notary),
            ("the staff's screens, dark", staff.workspaces),
            ("window sizes, dark", looks.sizes),
            ("a section that is closed, dark", glimpses.restricted),
            ("a restart", self._restart),
            ("back to light", looks.choose_light),
            ("the staff's screens, light", staff.workspaces),
            ("window sizes, light", looks.sizes),
        ]

    def _among_trays(self):
        starts = [(title, partial(chapter, start=self._start)) for title, chapter in trays.STARTS]
        return [("the tray goes and comes back", trays.go_and_come_back), *starts,
                ("back to an ordinary start", lambda stage: self._start())]

    def _at_the_end(self):
        return [
            ("closing the window", leaving.close_and_come_back),
            ("a second start", leaving.start_again),
            ("other desktops", self._glance_at_desktops),
            ("large text", self._enlarge_text),
            ("high contrast", self._strengthen_colours),
            ("light, whatever the desktop is", looks.choose_light),
            ("a section that is closed, light", glimpses.restricted),
            ("signing out again", staff.sign_out),
            ("what somebody hears without a screen", heard.from_end_to_end),
            ("a new account", signing_in.new_account),
            ("a profile is saved", settings.save_profile),
            ("another password", settings.change_password),
            ("a start with the desktop", settings.start_with_desktop),
            ("quitting", leaving.quit_from_tray),
            ("a desktop of today's kind", partial(today.by_keyboard, start=self._start)),
            ("nothing else was written", leaving.expect_tidy_home),
            ("nothing was told", leaving.expect_discreet),
        ]

    def _meet(self, bridge, tray, scheme, conditions=Conditions()):
        """Starts the client, which is expected to show itself in the scheme."""
        client = Client(self._build, self._desktop, bridge, conditions)
        self.stage = Stage(client, bridge, self._album, self._inspector, tray, scheme, self._secrets)

    def _start(self, conditions=Conditions()):
        """Once the client has ended. Returns the new stage."""
        self._meet(self.stage.bridge, self.stage.tray, self.stage.scheme, conditions)
        return self.stage

    def _restart(self, stage):
        """Whoever was signed in still is, in the scheme that was chosen."""
        leaving.quit_from_tray(stage)
        self._start()
        leaving.expect_still_signed_in(self.stage)

    def _glance_at_desktops(self, stage):
        for name, conditions in desktops.GLANCES.items():
            self._move(name, conditions)
            desktops.glance(self.stage)

    def _enlarge_text(self, stage):
        self._move("large-text", desktops.LARGE_TEXT)
        desktops.in_large_text(self.stage)

    def _strengthen_colours(self, stage):
        with Portal(self._desktop) as portal:
            self._move("high-contrast")
            desktops.in_high_contrast(self.stage, portal)
        self.stage.suffix = ""

    def _move(self, name, conditions=Conditions()):
        """To another desktop, which the names of its pictures tell."""
        leaving.quit_from_tray(self.stage)
        self._start(conditions)
        self.stage.suffix = f"-{name}"

    def show_failure(self):
        """What the screen showed, as a picture and as a screen reader would read it."""
        print(f"The screen when it failed: {self._album.take_failure()}", file=sys.stderr)
        if self.stage and self.stage.client.is_running():
            tree = self._album.folder / "failure.txt"
            tree.write_text(self.stage.screen.dump(), encoding="utf-8")
            print(f"What a screen reader would have read: {tree}", file=sys.stderr)


def _as_notary():
    return [
        ("a notary signs in", lambda stage: stage.enter(DEMO_NOTARY)),
        ("the notary's menu in the tray", trays.for_notary),
        ("the notary's dashboard", notary.see_dashboard),
        ("a call that another notary took", notary.lose_call),
        ("a call is accepted", notary.accept_call),
        ("a session is confirmed", notary.confirm),
        ("light for the notary", looks.choose_light),
        ("the notary's screens, light", notary.look),
        ("the notary signs out", staff.sign_out),
    ]


def _as_both():
    return [("a notary who works for a business too", trays.for_two_roles)]


def _as_business():
    return [
        ("a business signs in", lambda stage: stage.enter(DEMO_BUSINESS)),
        ("the business's menu in the tray", trays.for_business),
        ("the business's dashboard", business.see_dashboard),
        ("the ways on from there", business.go_on),
        ("dark for the business", looks.choose_dark),
        ("the business's screens, dark", business.look),
        ("the business signs out", staff.sign_out),
    ]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True, help="the build tree that holds bin/quorvel")
    parser.add_argument("--output", type=Path, help="where the pictures go (default: tour/ in the build tree)")
    arguments = parser.parse_args()
    # Leave through the ends of the `with` statements when asked to stop, as for Ctrl+C.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with Desktop() as desktop:
        album = Album((arguments.output or arguments.build / "tour").resolve(), desktop.frame_buffer)
        journey = Journey(arguments.build.resolve(), album, desktop)
        try:
            journey.run()
        except NoWayToBridge as obstacle:
            sys.exit(str(obstacle))
        except KeyboardInterrupt:
            sys.exit(128 + signal.SIGINT)
        except Exception:
            journey.show_failure()
            raise
    print(f"The pictures are in {album.folder}")


if __name__ == "__main__":
    main()
