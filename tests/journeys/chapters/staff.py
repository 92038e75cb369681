"""Somebody with several roles: the choice of workspace and the sections that come with the roles."""

from chapters import people, records, sessions
from chapters.signing_in import expect_nobody_remembered, expect_remembered, sidebar
from expectations import expect, expect_equal
from passwords import DEMO_PASSWORD
from stage import DEMO_ADMIN
from waiting import wait_for

WORKSPACES = ["Notary Dashboard", "Admin Dashboard", "Records", "Users", "Notaries"]
PICTURES = {"Dashboard": "dashboard-staff", "Sessions": "sessions-admin",
            "Notary Dashboard": "notary-dashboard-admin"}
PANES = {"Records": records.PANE, **people.PANE}


def sign_out(stage):
    """From the dashboard; whoever was signed in is forgotten."""
    stage.open("Dashboard")
    stage.person.press_button("Sign Out")
    stage.screen.wait_gone("push button", "Sign Out")
    expect_nobody_remembered(stage)


def admin_signs_in(stage):
    stage.open("Sessions")
    stage.sign_in_by_keys(DEMO_ADMIN, DEMO_PASSWORD)
    stage.screen.wait_gone("password text", "Password")
    stage.screen.wait_reads("Active Workspace")
    expect_equal(sidebar(stage), ["Dashboard", "Book Remote Notary", "Sessions", *WORKSPACES, "Settings"],
                 "the sections of somebody who is notary and admin")
    expect_remembered(stage, DEMO_ADMIN)


def switch_role(stage):
    """The workspace is chosen in the sidebar, and the sessions follow."""
    stage.open("Sessions")
    for role, subtitle in (("Notary", "Assigned and open remote notary sessions."),
                           ("Admin", "All remote notary sessions.")):
        stage.person.choose("Role", role)
        stage.screen.wait_reads(subtitle)
        expect("focused" in stage.screen.wait("combo box", "Role").states, "Choosing a role lost the focus.")
        stage.wait_until_loaded()
        stage.picture(f"sessions-{role.lower()}")
        wait_for(lambda: f"QuorvelMac.activeRole={role.lower()}" in stage.client.preferences(),  # noqa: B023
                 f"the role {role} to be kept")
    expected = len(stage.bridge.sessions())
    wait_for(lambda: len(sessions.rows(stage)) == expected, f"all {expected} sessions")


def workspaces(stage):
    """Every section of the roles opens without an alert, and so does the first entry of each list."""
    for section in ["Dashboard", "Sessions", *WORKSPACES]:
        stage.open(section)
        expect(not stage.screen.find("password text", "Password"), f"{section} asks for a sign-in.")
        expect(not stage.screen.find("alert", None), f"{section} opens with an alert.")
        name = PICTURES.get(section, section.lower().replace(" ", "-"))
        stage.picture(name)
        if section in PANES:
            stage.person.click_on(wait_for(lambda: stage.rows(section), f"the list of {section}")[0])  # noqa: B023
            stage.screen.wait("panel", PANES[section])
            stage.picture(f"{name}-selected")
