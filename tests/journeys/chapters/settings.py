"""Somebody's own settings: the profile, another password, and the start together with the desktop."""

from chapters.signing_in import NEW_ACCOUNT
from expectations import expect, expect_equal
from passwords import LATER_PASSWORD, NEW_PASSWORD, WRONG_PASSWORD
from someone_else import SomeoneElse
from waiting import wait_for

EMAIL = NEW_ACCOUNT["Email"].strip()
PROFILE = {"Full Name": "Zoë Älder-Øster", "Phone": "(555) 010-0191", "City": "Ängelholm & Springfield",
           "State": "NJ"}
COLUMNS = {"full_name": "Full Name", "phone": "Phone", "city": "City", "state": "State"}
LOGIN_SWITCH = "Open Quorvel when I sign in"
LOGIN_ITEM = ".config/autostart/app.quorvel.Quorvel.desktop"


def save_profile(stage):
    """Shown from the bridge, kept by the bridge, and the name is the new one everywhere at once."""
    stage.open("Settings")
    before = stage.bridge.user(EMAIL)
    for column, caption in COLUMNS.items():
        field = stage.screen.wait("text", caption)
        wait_for(lambda: field.text == before[column], f"{caption} to be filled in")  # noqa: B023
    for caption, text in PROFILE.items():
        stage.person.fill(caption, text)
    stage.person.press_button("Save Profile")
    stage.person.read_alert("Saved", "Your profile was updated.")
    expect_equal({column: stage.bridge.user(EMAIL)[column] for column in COLUMNS},
                 {column: PROFILE[caption] for column, caption in COLUMNS.items()}, "the profile")
    wait_for(lambda: stage.tray.titles()[0] == PROFILE["Full Name"], "the new name in the tray")
    stage.screen.wait("label", PROFILE["Full Name"])


def change_password(stage):
    """A new one is needed, and the current one; both fields are empty afterwards."""
    stage.person.press_button("Change Password")
    stage.person.read_alert("Missing Password", "Enter a new password.")
    before = stage.bridge.user(EMAIL)["password_hash"]
    _change(stage, WRONG_PASSWORD)
    stage.person.read_alert("Cannot Change Password", "The current password is not right.")
    expect_equal(stage.bridge.user(EMAIL)["password_hash"], before, "the password after the refusal")
    _change(stage, NEW_PASSWORD)
    stage.person.read_alert("Password Updated", "Your password was changed.",
                            picture=lambda: stage.picture("settings-password"))
    for caption in ("Current Password", "New Password"):
        expect_equal(stage.screen.wait("password text", caption).text, "", f"the {caption} afterwards")
    SomeoneElse(stage.bridge, EMAIL, LATER_PASSWORD)


def start_with_desktop(stage):
    """Switched on and off again; the desktop's own list of programs to start says the same."""
    expect(LOGIN_ITEM not in stage.client.files_at_home(), "The client starts with the desktop unasked.")
    stage.person.turn(LOGIN_SWITCH, True)
    wait_for(lambda: LOGIN_ITEM in stage.client.files_at_home(), "the entry that starts the client")
    expect(b"--background" in stage.client.file_at_home(LOGIN_ITEM), "The entry opens a window at every login.")
    stage.picture("settings-login-item")
    stage.person.turn(LOGIN_SWITCH, False)
    wait_for(lambda: LOGIN_ITEM not in stage.client.files_at_home(), "the entry to go")


def _change(stage, current):
    stage.person.fill_password("Current Password", current)
    stage.person.fill_password("New Password", LATER_PASSWORD)
    stage.person.press_button("Change Password")
