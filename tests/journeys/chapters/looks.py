"""The same screens in the other scheme and at other sizes."""

from chapters import conversation, sessions
from waiting import wait_for

# Of the content, under the menu bar.
SMALLEST = (980, 680)
# Nearly all of a common laptop's display.
LAPTOP = (1366, 700)
LARGEST = (1920, 1080)
MAIN_SCREENS = {"Dashboard": "dashboard", "Book Remote Notary": "booking", "Sessions": "sessions",
                "Settings": "settings"}
OFFICE_SCREENS = {"Admin Dashboard": "admin-dashboard", "Records": "records", "Users": "users",
                  "Notaries": "notaries"}


def choose_light(stage):
    _choose_scheme(stage, "Light")


def choose_dark(stage):
    _choose_scheme(stage, "Dark")


def follow_desktop(stage):
    """Whatever the desktop's scheme is, and becomes."""
    _choose_mode(stage, "System")


def _choose_scheme(stage, title):
    _choose_mode(stage, title)
    stage.scheme = title.lower()
    stage.picture("settings")


def _choose_mode(stage, title):
    """In the settings, where it takes effect at once and is remembered."""
    stage.open("Settings")
    stage.person.pick_radio(title)
    wait_for(lambda: f"appearanceMode={title.lower()}" in stage.client.preferences(), f"{title} to be kept")


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


def sign_in_sizes(stage):
    """What somebody finds who is signed out."""
    for size in (SMALLEST, LARGEST):
        stage.at_size(*size, _sign_in)


def _sign_in(stage):
    stage.open("Book Remote Notary")
    stage.screen.wait("password text", "Password")
    stage.picture("signin")


def sizes(stage):
    """From the smallest window, where everything is tight, to a large screen."""
    stage.at_size(*SMALLEST, lambda small: _screens(small, MAIN_SCREENS | OFFICE_SCREENS))
    for size in (LAPTOP, LARGEST):
        stage.at_size(*size, lambda wider: _screens(wider, MAIN_SCREENS | OFFICE_SCREENS))


def _screens(stage, names):
    for section, name in names.items():
        stage.open(section)
        stage.picture(name)
