"""Accounts and notary profiles in the hands of the office: searched, edited and removed."""

from expectations import expect, expect_equal
from passwords import OFFICE_PASSWORD
from someone_else import SomeoneElse
from waiting import wait_for

USERS, NOTARIES = "Users", "Notaries"
SEARCH = {USERS: "Search name, email, phone, role", NOTARIES: "Search notary name, email, county, state"}
PANE = {USERS: "User Details", NOTARIES: "Notary Details"}

EDITED_USER = "tomas.alder@example.com"
USER = {"Name": "Tomas “Tom” Alder", "Email": "tom.alder@example.org", "Phone": "(555) 010-0999",
        "Role": "law_firm"}
UNFINISHED_USER, NEXT_USER = "grace.obi@example.com", "daniel.reyes@example.com"
DELETED_USER = "oscar.lindqvist@example.com"

EDITED_NOTARY = "marta.kowal@example.com"
NOTARY = {"Name": "Marta Kowal-Øster", "Phone": "(555) 010-0555", "State": "NJ", "County": "Bergen & Essex",
          "Billing Status": "past_due", "Commission Number": "01-KO/6275", "Commission Expiration": "2032-02-29"}
NOTARY_COLUMNS = {"name": "Name", "phone": "Phone", "state": "State", "county": "County",
                  "billing_status": "Billing Status", "commission_number": "Commission Number",
                  "commission_expiration_date": "Commission Expiration"}
DELETED_NOTARY = "ruth.delgado@example.com"


def search_users(stage):
    """By a part of a phone number, and by role."""
    stage.open(USERS)
    users = stage.bridge.users()
    wait_for(lambda: len(stage.rows(USERS)) == len(users), f"all {len(users)} accounts")
    for text, found in {"010-01": [user for user in users if "010-01" in user["phone"]],
                        " AGENCY ": [user for user in users if user["role"] == "title_agency"]}.items():
        stage.person.fill(SEARCH[USERS], text)
        expected = [_user_row(user) for user in found]
        wait_for(lambda: _names(stage, USERS) == expected, f'what "{text}" finds')  # noqa: B023


def edit_user(stage):
    """With a new password, which is good at once."""
    user = stage.bridge.user(EDITED_USER)
    pane = _find(stage, USERS, EDITED_USER)
    for caption, text in USER.items():
        stage.person.fill(caption, text, pane)
    stage.person.fill_password("New Password", f" {OFFICE_PASSWORD} ")
    stage.picture("users-edited")
    stage.person.press_button("Save User", pane)
    stage.person.read_alert("Saved", "User was updated.")
    stored = stage.bridge.user(USER["Email"])
    expect_equal({key: stored[key] for key in ("id", "full_name", "email", "phone", "role", "city")},
                 {"id": user["id"], "full_name": USER["Name"], "email": USER["Email"], "phone": USER["Phone"],
                  "role": "law_firm", "city": user["city"]}, "the account")
    expect(stored["business_id"], "A business role has brought no business.")
    SomeoneElse(stage.bridge, USER["Email"], OFFICE_PASSWORD)


def leave_unfinished(stage):
    """Whoever chooses another account before saving is asked: to stay keeps what was typed, to go loses it."""
    before = stage.bridge.user(UNFINISHED_USER)
    _show_all(stage, USERS)
    pane = _find(stage, USERS, UNFINISHED_USER, alone=False)
    stage.person.fill("Name", "Grace Unfinished", pane)
    other = stage.screen.wait("list item", _user_row(stage.bridge.user(NEXT_USER)))
    stage.person.click_on(other)
    stage.person.answer("Discard Changes?", "What you entered here has not been sent or saved yet.", "Keep Editing",
                        picture=lambda: stage.picture("question"))
    expect_equal(stage.screen.wait("text", "Name", pane).text, "Grace Unfinished", "the name after staying")
    wait_for(lambda: _selected(stage, USERS) == [_user_row(before)], "the account to stay selected")
    stage.person.click_on(other)
    stage.person.answer("Discard Changes?", "What you entered here has not been sent or saved yet.", "Discard")
    wait_for(lambda: _email_shown(stage, USERS) == NEXT_USER, "the other account")
    expect_equal(stage.bridge.user(UNFINISHED_USER), before, "the account that was not saved")


def delete_user(stage):
    """At once; the sessions of the account stay."""
    user = stage.bridge.user(DELETED_USER)
    sessions = [session["id"] for session in stage.bridge.visible_sessions(DELETED_USER)]
    expect(sessions, "The account to delete has no session that could stay.")
    pane = _find(stage, USERS, DELETED_USER)
    stage.person.press_button("Delete", pane)
    stage.screen.wait_reads("Select a User")
    expect(stage.bridge.user(DELETED_USER) is None, f"{user['full_name']} still has an account.")
    expect_equal([stage.bridge.session(session)["owner_id"] for session in sessions], [None] * len(sessions),
                 "the owners of the sessions that stay")
    _show_all(stage, USERS)
    wait_for(lambda: len(stage.rows(USERS)) == len(stage.bridge.users()), "the accounts that are left")


def edit_notary(stage):
    """Found by the county, switched off; name and phone are the account's as well."""
    stage.open(NOTARIES)
    wait_for(lambda: len(stage.rows(NOTARIES)) == len(stage.bridge.notaries()), "all notaries")
    notary = stage.bridge.notary(EDITED_NOTARY)
    pane = _find(stage, NOTARIES, EDITED_NOTARY, search=notary["county"].lower())
    for caption, text in NOTARY.items():
        stage.person.fill(caption, text, pane)
    stage.person.turn("Active", False, pane)
    stage.picture("notaries-edited")
    stage.person.press_button("Save Notary", pane)
    stage.person.read_alert("Saved", "Notary was updated.")
    stored = stage.bridge.notary(EDITED_NOTARY)
    expect_equal(stored, notary | {column: NOTARY[caption] for column, caption in NOTARY_COLUMNS.items()}
                 | {"active": 0, "updated_at": stored["updated_at"]}, "the profile")
    account = stage.bridge.user(EDITED_NOTARY)
    expect_equal((account["full_name"], account["phone"], account["role"]),
                 (NOTARY["Name"], NOTARY["Phone"], "signing_agent"), "the notary's account")


def delete_notary(stage):
    """At once; a session that was assigned has no notary any more."""
    notary = stage.bridge.notary(DELETED_NOTARY)
    sessions = [session["id"] for session in stage.bridge.assigned_sessions(DELETED_NOTARY)]
    others = [other for other in stage.bridge.notaries() if other["id"] != notary["id"]]
    pane = _find(stage, NOTARIES, DELETED_NOTARY)
    stage.person.press_button("Delete", pane)
    stage.screen.wait_reads("Select a Notary")
    expect_equal(stage.bridge.notaries(), others, "the other notaries")
    expect_equal([stage.bridge.session(session)["notary_id"] for session in sessions], [None] * len(sessions),
                 "the notary of the sessions that were assigned")
    _show_all(stage, NOTARIES)
    wait_for(lambda: len(stage.rows(NOTARIES)) == len(others), f"the {len(others)} notaries that are left")


def _find(stage, section, email, search=None, alone=True):
    """Searches, unless the list already shows the row and others; selects it and returns its pane."""
    if alone:
        stage.person.fill(SEARCH[section], search or email)
        wait_for(lambda: len(stage.rows(section)) == 1, f"{email} alone in the list")
        stage.person.click_on(stage.rows(section)[0])
    else:
        stage.person.click("list item", _user_row(stage.bridge.user(email)))
    wait_for(lambda: _email_shown(stage, section) == email, f"{email} in the pane")
    return stage.screen.wait("panel", PANE[section])


def _show_all(stage, section):
    stage.person.fill(SEARCH[section], "")


def _email_shown(stage, section):
    pane = stage.screen.find("panel", PANE[section])
    field = stage.screen.find("text", "Email", pane) if pane else None
    return field.text if field else None


def _names(stage, section):
    return [row.name for row in stage.rows(section)]


def _selected(stage, section):
    return [row.name for row in stage.rows(section) if "selected" in row.states]


def _user_row(user):
    return f"{user['full_name']}, {user['email']}, {user['role']}"
