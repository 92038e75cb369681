"""The list of sessions: its order, its search, its filter."""

from expectations import display_date_time, expect, expect_equal, latest_first
from stage import DEMO_CLIENT
from waiting import wait_for

SEARCH = "Search name, signer, email, status, document"
NO_MATCH = "Book a remote notary session or adjust your search filters."


def find_booked(stage, form):
    """What was just booked stands at its place, and search and filter find it."""
    booked = stage.bridge.newest_session()
    title = ", ".join(signer.name for signer in form.signers)
    owned = stage.bridge.visible_sessions(DEMO_CLIENT)
    stage.open("Sessions")
    wait_for(lambda: len(rows(stage)) == len(owned), f"{len(owned)} sessions in the list")
    place = [session["id"] for session in latest_first(owned)].index(booked["id"])
    row = rows(stage)[place]
    expect(row.name.startswith(title), f'Row {place} is "{row.name}", not that of {title}.')
    for text in (display_date_time(booked), "Requested", booked["document_type"]):
        expect(text.lower() in row.name.lower(), f'The row "{row.name}" does not say "{text}".')
    stage.person.click_on(row)
    stage.screen.wait_reads(booked["reference_id"])
    _search(stage, booked, title, owned)
    _filter(stage, booked, title, owned)


def rows(stage):
    return stage.rows("Sessions")


def _search(stage, booked, title, owned):
    """Whatever case and blanks it is typed with."""
    stage.person.fill(SEARCH, f"  {booked['reference_id'].lower()} ")
    wait_for(lambda: len(rows(stage)) == 1, "the search to leave one session")
    expect(rows(stage)[0].name.startswith(title), "The search left another session.")
    stage.picture("sessions-search")
    stage.person.fill(SEARCH, "no such session")
    stage.screen.wait_reads("No Sessions Found")
    stage.screen.wait_reads(NO_MATCH)
    stage.picture("sessions-empty")
    stage.person.fill(SEARCH, "")
    wait_for(lambda: len(rows(stage)) == len(owned), "all sessions to come back")
    selected = [row.name for row in rows(stage) if "selected" in row.states]
    expect(len(selected) == 1 and selected[0].startswith(title), f"The search changed the selection to {selected}.")


def _filter(stage, booked, title, owned):
    for label in ("Completed", "Requested"):
        stage.person.choose("Status", label)
        expected = sum(session["status"] == label.lower() for session in owned)
        wait_for(lambda: len(rows(stage)) == expected, f"{expected} sessions that are {label}")  # noqa: B023
    expect_equal(booked["status"], "requested", "the status of what was just booked")
    expect(any(row.name.startswith(title) for row in rows(stage)), "The filter hides what was just booked.")
    stage.picture("sessions-filtered")
    stage.person.choose("Status", "All Statuses")
    wait_for(lambda: len(rows(stage)) == len(owned), "all sessions to come back")
