"""A notary's day: the dashboard, open calls won and lost, and a session that gets its date, time and fee."""

from chapters import dashboards
from chapters.dashboards import UPCOMING, count, names_in
from expectations import expect, expect_equal, session_row, signer_names
from someone_else import SomeoneElse
from stage import DEMO_NOTARY
from waiting import wait_for

OTHER_NOTARY = "marta.kowal@example.com"
ASSIGNED, OPEN = "Assigned Sessions", "Open Calls"
LOST_CLIENT, WON_CLIENT = "Grace Obi", "Tomas Alder"

CONFIRMED = {"Confirmed Date": "2031-05-06", "Confirmed Time": "2:05 PM", "Proposed Fee": "1,249.50",
             "Status Note": "Moved at the client's request; \"both\" <b>agreed</b>",
             "Witness Name / Notes": "Zoë Älder & one more"}


def see_dashboard(stage):
    stage.open("Notary Dashboard")
    _expect_dashboard(stage)
    stage.picture("notary-dashboard")


def lose_call(stage):
    """Another notary was faster: one sentence says so, and nothing moves until the lists are loaded again."""
    lost = _open_call_of(stage, LOST_CLIENT)
    SomeoneElse(stage.bridge, OTHER_NOTARY).accept_open_call(lost["id"])
    before = [names_in(stage, title) for title in (ASSIGNED, OPEN)]
    stage.person.press_button(f"Accept {LOST_CLIENT}")
    stage.person.read_alert("Cannot Accept Session", "Another notary has already accepted this call.",
                            picture=lambda: stage.picture("notary-dashboard-too-late"))
    expect_equal([names_in(stage, title) for title in (ASSIGNED, OPEN)], before, "the lists after the refusal")
    stage.person.press_button("Refresh")
    _expect_dashboard(stage)


def accept_call(stage):
    """The call moves to the assigned sessions, scheduled for the time that the client preferred."""
    call = _open_call_of(stage, WON_CLIENT)
    stage.person.press_button(f"Accept {WON_CLIENT}")
    wait_for(lambda: stage.bridge.session(call["id"])["notary_id"], "the call to be accepted")
    session = stage.bridge.session(call["id"])
    expect_equal({key: session[key] for key in ("notary_id", "status", "scheduled_date", "scheduled_time")},
                 {"notary_id": stage.bridge.notary(DEMO_NOTARY)["id"], "status": "scheduled",
                  "scheduled_date": call["preferred_date"], "scheduled_time": call["preferred_time"]},
                 "the accepted session")
    _expect_dashboard(stage)


def confirm(stage):
    """From the dashboard into the session, which gets what both have agreed upon."""
    session = next(session for session in _assigned(stage) if signer_names(session) == WON_CLIENT)
    stage.person.click("list item", session_row(session), stage.screen.wait("list", ASSIGNED))
    stage.wait_for_section("Sessions")
    stage.screen.wait_reads(session["reference_id"])
    controls = stage.screen.wait("panel", "Notary Controls")
    expect_equal(stage.screen.wait("text", "Confirmed Date", controls).text, session["preferred_date"],
                 "the date before it is confirmed")
    stage.person.choose("Status", "rescheduled", controls)
    stage.person.turn("Witness Required", True, controls)
    for caption, text in CONFIRMED.items():
        stage.person.fill(caption, text, controls)
    stage.picture("sessions-notary-edited")
    stage.person.press_button("Save Notary Update", controls)
    stage.person.read_alert("Saved", "Notary update was saved.")
    stored = stage.bridge.session(session["id"])
    expect_equal(stored, session | {
        "status": "rescheduled", "scheduled_date": "2031-05-06", "scheduled_time": "2:05 PM",
        "proposed_fee": "1,249.50", "status_note": CONFIRMED["Status Note"], "requires_witness": 1,
        "witness_name": CONFIRMED["Witness Name / Notes"], "updated_at": stored["updated_at"]}, "the session")
    expect(stored["updated_at"] > session["updated_at"], "The change left no trace in the time of the last one.")
    newest = stage.bridge.history(session["id"])[-1]
    expect_equal((newest["status"], newest["note"], newest["user_id"]),
                 ("rescheduled", CONFIRMED["Status Note"], stage.bridge.user(DEMO_NOTARY)["id"]), "the history's end")
    wait_for(lambda: stage.rows("Sessions")[0].name == session_row(stored), "the session to lead the list")
    stage.picture("sessions-notary")


def look(stage):
    stage.open("Notary Dashboard")
    stage.picture("notary-dashboard")
    stage.open("Sessions")
    stage.screen.wait("panel", "Notary Controls")
    stage.picture("sessions-notary")


def _expect_dashboard(stage):
    assigned, calls = _assigned(stage), stage.bridge.open_calls()
    dashboards.expect_tiles(stage, {"Assigned": len(assigned), OPEN: len(calls),
                                    "Upcoming": count(assigned, UPCOMING)})
    dashboards.expect_rows(stage, ASSIGNED, [session_row(session) for session in assigned])
    dashboards.expect_rows(stage, OPEN, [session_row(call, status=False) for call in calls])


def _assigned(stage):
    return stage.bridge.assigned_sessions(DEMO_NOTARY)


def _open_call_of(stage, client):
    return next(call for call in stage.bridge.open_calls() if signer_names(call) == client)
