"""What is on the screen for a moment only: open pickers, what lies under the pointer, lines that say that something
loads, and a section that is closed to whoever is there now."""

import hands
from chapters import people
from chapters.staff import sign_out
from passwords import DEMO_PASSWORD
from stage import DEMO_ADMIN, DEMO_CLIENT
from waiting import wait_for


# From the end of a picker to the middle of its symbol.
SYMBOL = 20


def see(stage):
    """As a client."""
    _pickers(stage)
    _hovered(stage)
    _loading(stage)


def _pickers(stage):
    """Each is opened by keyboard and closed again without a choice."""
    stage.open("Book Remote Notary")
    stage.person.turn("ASAP, earliest available", False)
    # From below, so that there is room for the calendar under its field.
    stage.person.reveal(stage.screen.wait("push button", "Submit Remote Notary Request"))
    _open_and_close(stage, "spin button", "Preferred Date & Time", "picker-calendar")
    _open_and_close(stage, "combo box", "Document Type", "picker-document-type")
    stage.open("Sessions")
    _open_and_close(stage, "combo box", "Status", "picker-status")


def _open_and_close(stage, role, name, picture):
    picker = stage.screen.wait(role, name)
    stage.person.reveal(picker)
    before = stage.album.look(stage.client.window)
    # On its symbol: within its text a date is typed.
    hands.click(picker.rect.x + picker.rect.width - SYMBOL, picker.rect.centre[1])
    wait_for(lambda: stage.album.look(stage.client.window) != before, f'the list of "{name}"')
    _take(stage, picture)
    hands.press("Escape")


def _hovered(stage):
    """A row that is not selected, the thumb of a list, and an entry of the sidebar."""
    rows = wait_for(lambda: stage.rows("Sessions")[1:], "a second session")
    hands.move(*rows[0].rect.centre)
    _take(stage, "hover-row")
    listed = stage.screen.find("list", "Sessions").rect
    hands.move(listed.x + listed.width - 6, listed.y + 40)
    _take(stage, "hover-scroll-bar")
    hands.move(*stage.screen.wait("list item", "Settings").rect.centre)
    _take(stage, "hover-sidebar")


def _loading(stage):
    """While the bridge keeps everybody waiting."""
    stage.open("Dashboard")
    stage.bridge.freeze()
    stage.person.click("list item", "Sessions")
    stage.screen.wait_reads("Loading sessions...")
    stage.album.take_at_once(f"sessions-loading{stage.suffix}-{stage.scheme}", stage.client.window)
    stage.bridge.thaw()
    stage.wait_until_loaded()


def restricted(stage):
    """The office's sign-in ends while its accounts are open, and a client signs in there. The admin is back at the
    end."""
    stage.open(people.USERS)
    stage.bridge.end_sign_ins()
    hands.press("F5")
    stage.screen.wait("password text", "Password")
    stage.sign_in(DEMO_CLIENT, DEMO_PASSWORD)
    stage.screen.wait_reads("Access Restricted")
    stage.screen.wait_reads("This section is available to Admin accounts only.")
    stage.picture("restricted")
    sign_out(stage)
    stage.enter(DEMO_ADMIN)


def _take(stage, name):
    """With the pointer where it is."""
    stage.album.take(f"{name}{stage.suffix}-{stage.scheme}", stage.client.window)
