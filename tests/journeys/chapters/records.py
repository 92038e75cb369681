"""The office's records: sessions and walk-ins in one list, one of them edited and one deleted."""

import hands
from expectations import expect_equal
from waiting import wait_for

SEARCH = "Search records, signers, status, email"
LIST, PANE, NOTHING_SELECTED = "Records", "Record Details", "Select a Record"

EDITED = {
    "Status": "waiting for Ängelholm",
    "Document Type": "Oath / Affirmation & more",
    "Contact Name": "Victor \"Vic\" <b>Chen</b>",
    "Contact Email": "vic.chen@example.org",
    "Contact Phone": "(555) 010-0777",
    "Date": "2031-02-28",
    "Time": "11:59 PM",
    "Notes": "Brings “both” originals; 100% cash.",
}
COLUMNS = dict(zip(EDITED, ["status", "document_type", "contact_name", "contact_email", "contact_phone",
                            "scheduled_date", "scheduled_time", "notes"], strict=True))


def edit(stage):
    """A walk-in record takes every field as it was typed, and stays selected."""
    stage.open(LIST)
    everything = len(stage.bridge.sessions()) + len(stage.bridge.walk_ins())
    wait_for(lambda: len(stage.rows(LIST)) == everything, f"all {everything} records")
    stage.screen.wait_reads(NOTHING_SELECTED)
    stage.person.choose("Type", "Walk-Ins")
    wait_for(lambda: len(stage.rows(LIST)) == len(stage.bridge.walk_ins()), "the walk-in records alone")
    record = _find(stage, "Victor Chen")
    pane = stage.screen.wait("panel", PANE)
    stage.screen.wait_reads("Mei Chen", within=pane)
    for caption, text in EDITED.items():
        stage.person.fill(caption, text, pane)
    stage.picture("records-edited")
    stage.person.press_button("Save Record", pane)
    stage.person.read_alert("Saved", "Record was updated.")
    stored = _walk_in(stage, record["id"])
    expect_equal(stored, record | {COLUMNS[caption]: text for caption, text in EDITED.items()}
                 | {"updated_at": stored["updated_at"]}, "the record")
    wait_for(lambda: ["selected" in row.states for row in stage.rows(LIST)] == [True], "the record to stay selected")
    expect_equal({caption: stage.screen.wait("text", caption, pane).text for caption in EDITED}, EDITED,
                 "the pane after saving")


def delete(stage):
    """At once. A session that has the same number stays."""
    record = _find(stage, "Leo Fischer")
    session = stage.bridge.session(record["id"])
    others = [other for other in stage.bridge.walk_ins() if other["id"] != record["id"]]
    stage.person.press_button("Delete", stage.screen.wait("panel", PANE))
    stage.screen.wait_reads(NOTHING_SELECTED)
    stage.screen.wait_reads("No Records Found")
    expect_equal(stage.bridge.walk_ins(), others, "the other walk-in records")
    expect_equal(stage.bridge.session(record["id"]), session, "the session of the same number")
    stage.person.fill(SEARCH, "")
    wait_for(lambda: len(stage.rows(LIST)) == len(others), f"the {len(others)} records that are left")


def _find(stage, contact):
    """Whatever case and blanks it is typed with. Returns the bridge's row."""
    record = next(record for record in stage.bridge.walk_ins() if record["contact_name"] == contact)
    stage.person.fill(SEARCH, f"  {contact.upper()} ")
    wait_for(lambda: len(stage.rows(LIST)) == 1, f"the record of {contact} alone")
    stage.person.click_on(stage.rows(LIST)[0])
    hands.move(1, 1)
    shown = stage.screen.wait("text", "Contact Name", stage.screen.wait("panel", PANE))
    wait_for(lambda: shown.text == contact, f"the record of {contact} in the pane")
    return record


def _walk_in(stage, record_id):
    return next(record for record in stage.bridge.walk_ins() if record["id"] == record_id)
