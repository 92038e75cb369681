"""From the first start to the end of a sign-in."""

import re

from expectations import expect, expect_equal
from hearing import Eavesdropper
from passwords import ALL_PASSWORDS, DEMO_PASSWORD, NEW_PASSWORD, WRONG_PASSWORD
from stage import DEMO_CLIENT
from waiting import wait_for

NEW_ACCOUNT = {"Full Name": "Zoë_A & B & Älder ", "Phone": "(555) 010-0190", "City": " Springfield", "State": "",
               "Email": "zoe.alder@example.org"}
SIGNED_OUT_SIDEBAR = ["Dashboard", "Book Remote Notary", "Sessions", "Settings"]


def first_start(stage):
    """Nobody is signed in: the dashboard is open and only what everybody may see is in the sidebar."""
    expect_equal(stage.client.window[2:], (1180, 760 + stage.menu_bar_height()), "the first size of the window")
    expect_equal(stage.client.wait_for_window().name, "Dashboard", "the title of the window")
    expect_equal(sidebar(stage), SIGNED_OUT_SIDEBAR, "the sidebar of somebody who is not signed in")
    stage.screen.wait_reads("Desktop")
    expect(not stage.screen.find("push button", "Sign Out"), "Nobody is signed in, yet there is a Sign Out.")
    stage.picture("dashboard-signed-out")
    stage.open("Settings")
    stage.screen.wait_reads("Sign in required")
    stage.picture("settings-signed-out")


def gate(stage):
    """A protected section asks for a sign-in, or for a new account; the form keeps what was typed between them."""
    stage.open("Book Remote Notary")
    stage.screen.wait("password text", "Password")
    expect("focused" in stage.screen.wait("text", "Email").states, "The first field has no caret.")
    stage.picture("signin")
    stage.person.fill("Email", DEMO_CLIENT)
    stage.person.pick_radio("Create Account")
    for caption in ("Full Name", "Phone", "City", "State"):
        stage.screen.wait("text", caption)
    expect_equal(stage.screen.wait("text", "Email").text, DEMO_CLIENT, "the address after changing the mode")
    stage.picture("signin-create")
    stage.person.pick_radio("Sign In")
    stage.screen.wait_gone("text", "Full Name")


def wrong_password(stage):
    with Eavesdropper() as ears:
        stage.sign_in(DEMO_CLIENT, WRONG_PASSWORD)
        ears.wait_for(len(DEMO_CLIENT + WRONG_PASSWORD))
    told = "".join(ears.told)
    expect(told.endswith("•" * len(WRONG_PASSWORD)), f'On the accessibility bus the password is "{told}".')
    stage.person.read_alert("Sign In Failed", "Incorrect email or password. Please try again.",
                            picture=lambda: stage.picture("alert"))
    expect_equal(stage.screen.wait("text", "Email").text, DEMO_CLIENT, "the address after a failed sign-in")
    expect("focused" in stage.screen.wait("password text", "Password").states, "The password is not asked for again.")
    expect_nobody_remembered(stage)


def client_signs_in(stage):
    """Leads to the section that asked, and remembers who it is but not the password."""
    stage.sign_in(DEMO_CLIENT, DEMO_PASSWORD)
    stage.screen.wait_gone("password text", "Password")
    stage.screen.wait_reads("Priya Raman")
    expect_equal(stage.client.wait_for_window().name, "Book Remote Notary", "the section after the sign-in")
    expect(not stage.screen.reads("Active Workspace"), "One role needs no choice of workspace.")
    expect_remembered(stage, DEMO_CLIENT)


def new_account(stage):
    """Registered on the sign-in screen, and signed in at once."""
    stage.open("Sessions")
    stage.person.pick_radio("Create Account")
    for caption, text in NEW_ACCOUNT.items():
        stage.person.fill(caption, text)
    stage.person.fill_password("Password", NEW_PASSWORD)
    stage.person.press_button("Create Account")
    stage.screen.wait_gone("password text", "Password")
    stage.screen.wait_reads("No Sessions Found")
    account = stage.bridge.user(NEW_ACCOUNT["Email"].strip())
    expect_equal({key: account[key] for key in ("full_name", "phone", "city", "state", "role")},
                 {"full_name": "Zoë_A & B & Älder", "phone": "(555) 010-0190", "city": "Springfield", "state": "",
                  "role": "client"}, "the new account")
    expect(NEW_PASSWORD not in account["password_hash"], "The bridge keeps the password itself.")
    expect_remembered(stage, account["email"])
    stage.tray.wait_for_item()
    expect_equal(stage.tray.titles()[:2], ["Zoë_A & B & Älder", "Client"], "the heading of the tray's menu")


def sidebar(stage):
    """The titles of the sections on offer."""
    return [entry.name for group in ("Main", "Workspaces", "Account") for entry in stage.rows(group)]


def expect_remembered(stage, email):
    wait_for(lambda: stage.client.preferences_file.exists() and email in stage.client.preferences(),
             "the preferences to name who is signed in")
    expect("QuorvelMac.authUser" in stage.client.preferences(), "The signed-in person is not remembered.")
    expect_equal(stage.client.preferences_mode(), 0o600, "the mode of the preferences")
    expect_equal(stage.client.largest_core(), "0", "the size of a core file, which would hold the tokens")
    expect_equal(stage.client.core_filter(), "00000000", "what a core file would hold that is piped to a program")
    expect_no_password(stage)
    stage.secrets.update(tokens_in(stage.client.preferences()))


def tokens_in(preferences):
    tokens = re.findall(r'Token\\?":\\?"([^"\\]+)', preferences)
    expect_equal(len(tokens), 2, "the number of tokens in the preferences")
    return tokens


def expect_nobody_remembered(stage):
    if stage.client.preferences_file.exists():
        kept = stage.client.preferences()
        for key in ("QuorvelMac.authUser", "QuorvelMac.activeRole", "idToken", "refreshToken"):
            expect(key not in kept, f"{key} is kept although nobody is signed in.")
    expect_no_password(stage)


def expect_no_password(stage):
    for file in stage.client.files_at_home():
        kept = stage.client.file_at_home(file)
        for password in ALL_PASSWORDS:
            expect(password.encode() not in kept, f"The password is in {file}.")
