"""Booking a session with files: the form, its checks, the upload, and what the bridge keeps of it."""

import os
from datetime import date, datetime
from pathlib import Path
from zoneinfo import ZoneInfo

import hands
from bridge import StoredUpload, sha256
from chooser import choose_files
from expectations import NEW_YORK, BookingForm, Signer, booking_request, expect, expect_equal, fee
from stage import DEMO_CLIENT
from waiting import wait_for

HERE = ZoneInfo("America/Los_Angeles")
# Late in the evening here, which is the next day and the next month in New York.
PREFERRED = datetime(date.today().year + 1, 9, 30, 23, 45, tzinfo=HERE)

FORM = BookingForm(
    contact_name="Priya Raman ",
    contact_email=DEMO_CLIENT,
    contact_phone=" (555) 010-0117",
    retrieval_option="priority",
    preferred=PREFERRED,
    document_type="Power of Attorney",
    act_count=3,
    details="Durable power of attorney, <b>two</b> signers & \"three\" signatures. Zoë joins from Ängelholm 😀",
    witness_required=True,
    apostille_needed=False,
    notes="Please call before 5 o'clock; 100% sure.",
    signers=[
        Signer("Priya Raman", DEMO_CLIENT, "(555) 010-0118", "Passport", date(2031, 9, 30)),
        Signer("Zoë \"Z\" Älder", "zoe.alder@example.com", "", "State ID", date(2032, 2, 29)),
    ],
)

# What opens the chooser, which is titled alike, and what takes the files.
CHOOSER = ("Choose Files", "Open")
LABEL = "Document label, e.g. Passport, Power of Attorney, Closing Package"
FILE_NAMES = ["Zoë's \"power-of_attorney\" 😀.pdf", "big_scan.tiff"]
BIG_FILE_BYTES = 50 * 1000 * 1000


def missing_information(stage):
    """An empty request is refused with the first thing that is missing, and nothing is sent."""
    before = stage.bridge.session_count()
    wait_for(lambda: stage.screen.wait("text", "Name").text == "Priya Raman", "the name to be filled in")
    stage.picture("booking")
    _submit(stage)
    stage.person.read_alert("Missing Information", "Describe what needs to be notarized.",
                            picture=lambda: stage.picture("booking-missing"))
    details = stage.screen.wait("text", "What needs to be notarized?")
    expect("focused" in details.states, "Nobody was led to what is missing.")
    expect(details.clipping_ancestor() is None, "What is missing is out of sight.")
    stage.picture("booking-missing-led")
    expect_equal(stage.screen.wait("text", "Email").text, DEMO_CLIENT, "the address after the alert")
    expect_equal(stage.bridge.session_count(), before, "the number of sessions after a refused request")


def fill(stage):
    """Everything but the files, by mouse and keyboard."""
    person, screen = stage.person, stage.screen
    person.fill("Name", FORM.contact_name)
    person.fill("Phone", FORM.contact_phone)
    person.pick_radio("Priority Document Retrieval (Rush)")
    _set_moment(stage, PREFERRED)
    for _ in range(FORM.act_count - 1):
        _step_up(stage)
    screen.wait_reads("Number of Signatures: 3")
    screen.wait_reads(fee(FORM))
    screen.wait_reads("Rush estimate based on the number of signatures.")
    stage.picture("booking-filled-top")
    person.choose("Document Type", FORM.document_type)
    person.fill("What needs to be notarized?", FORM.details)
    person.press_button("Add Signer")
    for number, signer in enumerate(FORM.signers, start=1):
        _fill_signer(stage, f"Signer {number}", signer)
    stage.picture("booking-filled-middle")
    person.turn("Witness Required", FORM.witness_required)
    person.fill("Additional Notes", FORM.notes)


def come_back(stage):
    """A half-written request survives a look elsewhere."""
    stage.open("Sessions")
    stage.open("Book Remote Notary")
    screen = stage.screen
    expect_equal(screen.wait("text", "Name").text, FORM.contact_name, "the name after coming back")
    expect_equal(screen.wait("text", "What needs to be notarized?").text, FORM.details,
                 "the details after coming back")
    expect_equal(screen.wait("text", "Name", _signer(stage, "Signer 2")).text, FORM.signers[1].name,
                 "the second signer after coming back")
    screen.wait_reads(fee(FORM))


def make_files(home: Path):
    """A small file with a name that is hard on every part of an upload, and a large one."""
    awkward, big = (home / name for name in FILE_NAMES)
    awkward.write_bytes(b"%PDF-1.7\n" + bytes(range(256)) * 8)
    big.write_bytes(os.urandom(BIG_FILE_BYTES))
    return [awkward, big]


def attach(stage, files):
    """Through the file chooser: both at once, then one of them a second time, which changes nothing."""
    choose_files(stage, *CHOOSER, files)
    stage.screen.wait_reads("Attached to Booking")
    choose_files(stage, *CHOOSER, files[:1])
    labels = wait_for(lambda: _labels(stage), "the attached files")
    expect_equal([label.text for label in labels], ["Zoë's \"power of attorney\" 😀", "big scan"],
                 "the labels of the attached files")
    stage.person.reveal(labels[1])
    hands.click(*labels[1].rect.centre)
    hands.press("ctrl+a")
    hands.write("Survey of the site")
    wait_for(lambda: labels[1].text == "Survey of the site", "the label to change")
    stage.person.choose("Type", "Apostille Document", place=1)
    stage.person.reveal(stage.screen.wait("push button", "Submit Remote Notary Request"))
    stage.picture("booking-files")


def without_bridge(stage):
    """Nobody answers: one sentence says so, and the form stays as it was."""
    stage.bridge.kill()
    _submit(stage)
    _read_failure(stage)
    stage.bridge.start()


def interrupted(stage):
    """The bridge dies while the second file is on its way. The session is booked by then, the first file in it."""
    before = stage.bridge.session_count()
    _submit(stage)
    wait_for(lambda: stage.bridge.uploads(stage.bridge.newest_session()["id"]), "the first file to arrive", interval=0)
    stage.bridge.freeze()
    stage.screen.wait_reads(f"Uploading 2 of 2: {FILE_NAMES[1]}")
    stage.person.reveal(stage.screen.wait("push button", "Submit Remote Notary Request"))
    stage.album.take_at_once(f"booking-uploading-{stage.scheme}", stage.client.window)
    stage.bridge.kill()
    _read_failure(stage)
    stage.bridge.start()
    expect_equal(stage.bridge.session_count(), before + 1, "the number of sessions after the interruption")


def submit(stage, files):
    """Pressed again, it books no second session but sends what is missing. All arrived as it was entered, byte for
    byte."""
    before = stage.bridge.session_count()
    _submit(stage)
    wait_for(lambda: _is_done(stage), "the request to be submitted")
    session = stage.bridge.newest_session()
    stage.screen.wait_reads(f"Remote notary request {session['reference_id']} was created. Our team will review and "
                            "confirm the session. 2 files uploaded into the session.")
    stage.picture("booking-success")
    expect_equal(stage.bridge.session_count(), before, "the number of sessions")
    expect_equal(session["request"], booking_request(FORM), "the stored request")
    expect_equal(stage.bridge.uploads(session["id"]), _expected_uploads(files), "the stored files")


def see_sessions(stage):
    stage.person.press_button("View Sessions")
    wait_for(lambda: stage.client.wait_for_window().name == "Sessions", "the sessions")
    stage.open("Book Remote Notary")
    expect(_is_done(stage), "The success card was lost by a look at the sessions.")
    stage.person.press_button("Book Another")
    wait_for(lambda: stage.screen.wait("text", "What needs to be notarized?").text == "", "an empty form")


def _expected_uploads(files):
    awkward, big = files
    return [
        StoredUpload(awkward.name, "Zoë's \"power of attorney\" 😀", "notarized_document", "application/pdf",
                     sha256(awkward)),
        StoredUpload(big.name, "Survey of the site", "apostille_document", "image/tiff", sha256(big)),
    ]


def _submit(stage):
    stage.person.press_button("Submit Remote Notary Request")


def _read_failure(stage):
    stage.person.read_alert("Booking Failed",
                            "Connection problem. Please check your internet connection and try again.")
    expect_equal(stage.screen.wait("text", "What needs to be notarized?").text, FORM.details,
                 "the details after the failure")
    expect_equal(len(_labels(stage)), len(FILE_NAMES), "the number of files after the failure")


def _is_done(stage):
    return stage.screen.reads("Request Submitted")


def _labels(stage):
    return list(stage.screen.find_all("text", LABEL))


def _signer(stage, title):
    return stage.screen.wait("panel", title)


def _fill_signer(stage, title, signer):
    block = _signer(stage, title)
    stage.person.fill("Name", signer.name, block)
    stage.person.fill("Email", signer.email, block)
    stage.person.fill("Phone", signer.phone, block)
    stage.person.choose("ID Type", signer.id_type, block)
    hands.press("Tab")
    expiration = wait_for(lambda: _focused(stage, "ID Expiration", block), "the expiration to have the focus")
    # The year first: a leap day exists only in some.
    _write_parts(year_and_more=f"{signer.id_expiration:%Y}", parts_written=1, day=f"{signer.id_expiration:%b%d}")
    shown = f"{signer.id_expiration:%b} {signer.id_expiration.day}, {signer.id_expiration.year}"
    wait_for(lambda: expiration.text == shown, f"the expiration to be {shown}")


def _set_moment(stage, moment):
    """Types it into the picker, whose parts take the focus one after another."""
    person = stage.person
    person.turn("ASAP, earliest available", True)
    person.turn("ASAP, earliest available", False)
    hands.press("Tab")
    picker = wait_for(lambda: _focused(stage, "Preferred Date & Time"), "the picker to have the focus")
    # The year first, so that every month and day lies in the future.
    _write_parts(year_and_more=f"{moment:%Y%I%M%p}", parts_written=4, day=f"{moment:%b%d}")
    shown = f"{moment:%b} {moment.day}, {moment.year}, {moment:%-I:%M %p}"
    wait_for(lambda: picker.text == shown, f"the picker to show {shown}")
    there = moment.astimezone(NEW_YORK)
    stage.screen.wait_reads(f"{there:%a, %b} {there.day}, {there:%-I:%M %p} {there:%Z} in New York")


def _write_parts(year_and_more, parts_written, day):
    """Into a date picker that has the focus, on the first of its parts: month, day, year and so on."""
    hands.press("ctrl+Right", "ctrl+Right")
    hands.write(year_and_more)
    hands.press(*["ctrl+Left"] * (parts_written + 1))
    hands.write(day)


def _focused(stage, name, within=None):
    field = stage.screen.find("spin button", name, within)
    return field if field and "focused" in field.states else None


def _step_up(stage):
    stepper = stage.screen.wait("spin button", "Number of Signatures")
    before = stepper.value
    stage.person.reveal(stepper)
    plus = stepper.rect
    hands.click(plus.x + plus.width * 3 // 4, plus.centre[1])
    wait_for(lambda: stepper.value == before + 1, "the number of signatures to grow")
