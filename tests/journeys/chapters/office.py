"""The office: its dashboard, and sessions that it assigns and deletes."""

from chapters import dashboards
from chapters.dashboards import PENDING, count
from chapters.sessions import SEARCH
from expectations import display_date_time, expect, expect_equal, latest_first, session_row
from waiting import wait_for

# Everything that a session may be assigned with, beside its status.
ASSIGNED = {"Confirmed Date": "2031-07-04", "Confirmed Time": "9:15 AM", "Proposed Fee": "25.00",
            "Status Note": "Assigned by the office; 100% \"sure\" & <i>plain</i>"}
NOTARY, NOTARY_EMAIL = "Ruth Delgado", "ruth.delgado@example.com"
DELETE = "Delete Session"
MOST_RECENT = 8


def see_dashboard(stage):
    stage.open("Admin Dashboard")
    sessions = stage.bridge.sessions()
    dashboards.expect_tiles(stage, {"Remote Sessions": len(sessions), "Walk-In Records": len(stage.bridge.walk_ins()),
                                    "Users": len(stage.bridge.users()), "Pending": count(sessions, PENDING)})
    dashboards.expect_rows(stage, "Recent Remote Sessions",
                           [session_row(session, document=False) for session in sessions[:MOST_RECENT]])
    stage.picture("admin-dashboard")
    stage.person.press_button("View All")
    stage.wait_for_section("Sessions")


def assign(stage):
    """A session without a notary gets one, and a date; whoever books is told through the status."""
    session = stage.bridge.open_calls()[-1]
    _find(stage, session)
    controls = stage.screen.wait("panel", "Admin Controls")
    stage.person.choose("Status", "scheduled", controls)
    for caption, text in ASSIGNED.items():
        stage.person.fill(caption, text, controls)
    stage.person.choose("Assigned Notary", NOTARY, controls)
    stage.picture("sessions-admin-edited")
    stage.person.press_button("Save Admin Changes", controls)
    stage.person.read_alert("Saved", "Session was updated.", picture=lambda: stage.picture("alert-saved"))
    stored = stage.bridge.session(session["id"])
    expect_equal(stored, session | {
        "status": "scheduled", "scheduled_date": "2031-07-04", "scheduled_time": "9:15 AM", "proposed_fee": "25.00",
        "status_note": ASSIGNED["Status Note"], "notary_id": stage.bridge.notary(NOTARY_EMAIL)["id"],
        "updated_at": stored["updated_at"]}, "the session")
    wait_for(lambda: [row.name for row in stage.rows("Sessions")] == [session_row(stored)], "the list to say so")
    stage.screen.wait_reads(f"Assigned Notary: {NOTARY}")
    stage.screen.wait_reads(display_date_time(stored), within=stage.screen.wait("panel", "Session"))


def delete(stage):
    """Only when that is confirmed; then the session goes with everything in it, its files on the disk included, and the
    first of the others is shown."""
    session = next(session for session in stage.bridge.sessions() if stage.bridge.uploads(session["id"]))
    others = [other for other in stage.bridge.sessions() if other["id"] != session["id"]]
    _find(stage, session)
    _ask(stage, "Keep Session")
    expect_equal(stage.bridge.session(session["id"]), session, "the session that was kept")
    _ask(stage, DELETE)
    stage.screen.wait_reads("No Sessions Found")
    _wait_for_detail(stage, latest_first(others)[0])
    expect("focused" in stage.screen.wait("text", SEARCH).states, "The focus went elsewhere with what was deleted.")
    expect_equal(stage.bridge.sessions(), others, "the other sessions")
    expect_equal(stage.bridge.messages(session["id"]) + stage.bridge.uploads(session["id"]), [],
                 "what was in the session")
    expect_equal(stage.bridge.lost_files(), [], "files without a session")
    stage.person.fill(SEARCH, "")
    wait_for(lambda: len(stage.rows("Sessions")) == len(others), f"all {len(others)} sessions")


def _find(stage, session):
    """By its reference, which the search knows although no row shows it."""
    stage.person.fill(SEARCH, session["reference_id"])
    wait_for(lambda: [row.name for row in stage.rows("Sessions")] == [session_row(session)], "the session to be found")
    stage.person.click_on(stage.rows("Sessions")[0])
    _wait_for_detail(stage, session)
    stage.screen.wait("push button", "Send Message")


def _wait_for_detail(stage, session):
    reference = session["reference_id"]

    def is_shown():
        summary = stage.screen.find("panel", "Session")
        return summary and stage.screen.reads(reference, within=summary)

    wait_for(is_shown, f"{reference} in the detail")


def _ask(stage, answer):
    stage.person.press_button(DELETE)
    stage.person.answer("Delete Session?", "This session will be removed for everyone. This cannot be undone.", answer,
                        picture=lambda: stage.picture("question-delete"))
