"""The program on other people's desktops: a glance where only the geometry is another, and every screen where texts
are larger or colours stronger."""

from pathlib import Path

import hands
from chapters import booking, business, looks, people, settings, staff
from client import Conditions
from stage import DEMO_ADMIN, DEMO_BUSINESS, DEMO_CLIENT
from waiting import wait_for

GLANCES = {
    "scale-150": Conditions({"QT_SCALE_FACTOR": "1.5"}, scale=1.5),
    "scale-200": Conditions({"QT_SCALE_FACTOR": "2"}, scale=2),
    "right-to-left": Conditions(arguments=("-reverse",)),
}
# Twice as large as the design's.
LARGE_TEXT = Conditions({
    "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
    "XDG_CONFIG_DIRS": str(Path(__file__).parent.parent / "desktops" / "large-text")})

SHORTCUTS = {"Book Remote Notary": "ctrl+shift+b", "Sessions": "ctrl+shift+s", "Settings": "ctrl+comma"}


def glance(stage):
    """From the dashboard on, where the client begins, without the mouse."""
    stage.wait_for_section("Dashboard")
    stage.picture("dashboard")
    for section, keys in SHORTCUTS.items():
        hands.press(keys)
        stage.wait_for_section(section)
        stage.picture(section.split()[0].lower())


def in_large_text(stage):
    """Also in the smallest window, where large text has the least room."""
    stage.at_size(*looks.SMALLEST, _tightest)
    every_screen(stage)


def in_high_contrast(stage, portal):
    """Asked for while the window is open, which follows at once; and no longer at the end."""
    looks.follow_desktop(stage)
    stage.open("Dashboard")
    ordinary = stage.album.look(stage.client.window)
    portal.want_contrast(True)
    wait_for(lambda: stage.album.look(stage.client.window) != ordinary, "stronger colours")
    stage.portal = portal
    every_screen(stage)
    stage.portal = None
    portal.want_contrast(False)


def every_screen(stage):
    """As everybody who uses the program. The admin, who is signed in, is so again at the end."""
    staff.workspaces(stage)
    _controls(stage)
    _settings(stage)
    _question(stage)
    staff.sign_out(stage)
    looks.signed_out_screens(stage)
    for email, screens in ((DEMO_BUSINESS, business.look), (DEMO_CLIENT, _client_screens)):
        stage.enter(email)
        screens(stage)
        staff.sign_out(stage)
    stage.enter(DEMO_ADMIN)


def _tightest(stage):
    staff.workspaces(stage)
    _controls(stage)
    _settings(stage)
    stage.open("Book Remote Notary")
    stage.picture("booking")
    _booking(stage)


def _controls(stage):
    """What notary and office may do with a session, each in their own workspace."""
    stage.open("Sessions")
    for role, button in (("Notary", "Save Notary Update"), ("Admin", "Save Admin Changes")):
        stage.person.choose("Role", role)
        stage.wait_until_loaded()
        _picture_of(stage, button, f"sessions-{role.lower()}-controls")


def _settings(stage):
    stage.open("Settings")
    stage.picture("settings")
    _picture_of(stage, "Change Password", "settings-password")
    _picture_of(stage, settings.LOGIN_SWITCH, "settings-end", "check box")


def _question(stage):
    stage.open(people.USERS)
    people.leave_unfinished(stage)


def _client_screens(stage):
    looks.client_screens(stage)
    stage.open("Book Remote Notary")
    booking.missing_information(stage)
    _booking(stage)


def _booking(stage):
    """The form down to its end."""
    # All of it, from wherever the page was.
    stage.person.reveal(stage.screen.wait("label", "Signer 1"))
    _picture_of(stage, "ID Expiration", "booking-signer", "spin button")
    _picture_of(stage, "Submit Remote Notary Request", "booking-end")


def _picture_of(stage, control, name, role="push button"):
    stage.person.reveal(stage.screen.wait(role, control))
    stage.picture(name)
