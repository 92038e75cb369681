"""The same screens in the other scheme, at other sizes and on other people's desktops."""

from pathlib import Path

import hands
from chapters import conversation, sessions
from client import Conditions
from waiting import wait_for

SMALLEST = (980, 680)
LARGEST = (1920, 1080)
MAIN_SCREENS = {"Dashboard": "dashboard", "Book Remote Notary": "booking", "Sessions": "sessions",
                "Settings": "settings"}
OFFICE_SCREENS = {"Admin Dashboard": "admin-dashboard", "Records": "records", "Notaries": "notaries"}

DESKTOPS = Path(__file__).parent.parent / "desktops"
OTHER_DESKTOPS = {
    "large-text": Conditions({"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
                              "XDG_CONFIG_DIRS": str(DESKTOPS / "large-text")}),
    "scale-150": Conditions({"QT_SCALE_FACTOR": "1.5"}, scale=1.5),
    "scale-200": Conditions({"QT_SCALE_FACTOR": "2"}, scale=2),
    "right-to-left": Conditions(arguments=("-reverse",)),
}
SHORTCUTS = {"Book Remote Notary": "ctrl+shift+b", "Sessions": "ctrl+shift+s", "Settings": "ctrl+comma"}


def choose_light(stage):
    _choose_scheme(stage, "Light")


def choose_dark(stage):
    _choose_scheme(stage, "Dark")


def _choose_scheme(stage, title):
    """In the settings, where it takes effect at once and is remembered."""
    stage.open("Settings")
    stage.person.pick_radio(title)
    wait_for(lambda: f"appearanceMode={title.lower()}" in stage.client.preferences(), f"{title} to be kept")
    stage.scheme = title.lower()
    stage.picture("settings")


def client_screens(stage):
    """What a client sees, in the scheme as it is."""
    stage.open("Dashboard")
    stage.picture("dashboard")
    stage.open("Book Remote Notary")
    stage.picture("booking")
    conversation.look(stage)
    stage.person.fill(sessions.SEARCH, "no such session")
    stage.screen.wait_reads("No Sessions Found")
    stage.picture("sessions-empty")


def signed_out_screens(stage):
    """What everybody sees."""
    stage.open("Book Remote Notary")
    stage.screen.wait("password text", "Password")
    stage.picture("signin")
    stage.person.pick_radio("Create Account")
    stage.picture("signin-create")
    stage.open("Dashboard")
    stage.picture("dashboard-signed-out")
    stage.open("Settings")
    stage.picture("settings-signed-out")


def sizes(stage):
    """From the smallest window, where everything is tight, to a large screen."""
    stage.at_size(*SMALLEST, lambda small: _screens(small, MAIN_SCREENS | OFFICE_SCREENS))
    stage.at_size(*LARGEST, lambda large: _screens(large, MAIN_SCREENS))


def _screens(stage, names):
    for section, name in names.items():
        stage.open(section)
        stage.picture(name)


def screens_by_shortcut(stage):
    """From the dashboard on, where the client begins, without the mouse."""
    stage.wait_for_section("Dashboard")
    stage.picture("dashboard")
    for section, keys in SHORTCUTS.items():
        hands.press(keys)
        stage.wait_for_section(section)
        stage.picture(section.split()[0].lower())
