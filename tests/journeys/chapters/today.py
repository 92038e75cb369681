"""The program on a desktop of today's kind, by keyboard alone: a sign-in, a booking with its popups, the way back to
the window, the item in the tray."""

from chapters import leaving
from chapters.trays import menu_of
from client import Conditions
from expectations import expect, expect_equal
from hearing import Focus
from passwords import DEMO_PASSWORD
from stage import DEMO_CLIENT
from waiting import wait_for
from wayland import Compositor, changed

DETAILS = "A will, two pages"
# Far more than there are controls on any screen.
MOST_STOPS = 60
# How far from its field a popup may begin: its frame and its shadow.
NEAR = 24


def by_keyboard(stage, start):
    """Once the client has ended. It begins signed out."""
    stage.client.preferences_file.unlink()
    with Compositor(stage.tray.desktop, stage.album) as compositor:
        stage = start(Conditions(environment=compositor.environment))
        wait_for(lambda: compositor.focused_title() == "Dashboard", "the window to have the focus")
        compositor.take("dashboard")
        _sign_in(stage, compositor)
        _book(stage, compositor)
        _come_back(stage, compositor)
        stage.tray.wait_for_item()
        expect_equal(stage.tray.titles(), menu_of("Priya Raman", "Client"), "the tray's menu")
        leaving.quit_from_tray(stage)


def _sign_in(stage, compositor):
    compositor.press("ctrl+shift+s")
    stage.screen.wait("password text", "Password")
    _tab_to(compositor, "Email")
    compositor.write(DEMO_CLIENT)
    compositor.press("Tab")
    compositor.write(DEMO_PASSWORD)
    compositor.take("signin")
    compositor.press("Return")
    stage.screen.wait_gone("password text", "Password")
    stage.wait_until_loaded()
    compositor.take("sessions")


def _book(stage, compositor):
    before = stage.bridge.session_count()
    compositor.press("ctrl+shift+b")
    stage.wait_for_section("Book Remote Notary")
    wait_for(lambda: stage.screen.wait("text", "Name").text == "Priya Raman", "the name to be filled in")
    _tab_to(compositor, "ASAP, earliest available")
    compositor.press("Tab")
    date = stage.screen.wait("spin button", "Preferred Date & Time")
    _see_popup(stage, compositor, date, "F4", "calendar")
    _tab_to(compositor, "Document Type")
    _see_popup(stage, compositor, stage.screen.wait("combo box", "Document Type"), "alt+Down", "list")
    _tab_to(compositor, "What needs to be notarized?")
    compositor.write(DETAILS)
    # Of the signer, who is the last to be asked for one.
    _tab_to(compositor, "Name")
    compositor.write("Priya Raman")
    _tab_to(compositor, "ID Type")
    compositor.press("Down")
    _tab_to(compositor, "Submit Remote Notary Request")
    compositor.take("booking")
    compositor.press("space")
    stage.screen.wait_reads("Request Submitted")
    compositor.take("booked")
    expect_equal(stage.bridge.session_count(), before + 1, "the number of sessions")
    expect_equal(stage.bridge.newest_session()["request"]["remote_signing_details"], DETAILS, "what was booked")


def _see_popup(stage, compositor, field, key, name):
    """It opens beside its field, and Escape closes it."""
    before = compositor.take(f"{name}-closed")
    rect = field.rect
    compositor.press(key)
    wait_for(lambda: changed(before, compositor.look()).height > rect.height, f"{name} to open")
    # The window fills the output, so that places in it are places there.
    popup = changed(before, compositor.take(name))
    expect(abs(popup.x - rect.x) <= NEAR, f"The popup begins at {popup.x}, its field at {rect.x}.")
    expect(popup.y <= rect.bottom + NEAR and popup.bottom >= rect.y - NEAR,
           f"The popup is at {tuple(popup)}, its field at {tuple(rect)}.")
    compositor.press("Escape")
    wait_for(lambda: changed(before, compositor.look()).height <= rect.height, f"{name} to close")


def _come_back(stage, compositor):
    """Another start brings the window to the front of where somebody else has gone."""
    compositor.leave_window()
    permission = compositor.permission()
    expect(permission, "The compositor permits nobody to come to the front.")
    expect_equal(stage.client.start_again("--action=sessions", permission=permission), 0,
                 "the exit code of the second start")
    wait_for(lambda: compositor.focused_title() == "Sessions", "the window to come forward")
    compositor.take("second-start")


def _tab_to(compositor, name):
    with Focus() as focus:
        for _ in range(MOST_STOPS):
            compositor.press("Tab")
            if focus.wait_for_move() == name:
                return
    raise AssertionError(f'No stop of {MOST_STOPS} is "{name}".')
