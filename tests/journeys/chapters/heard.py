"""What somebody hears who works without a screen: the way through the program by keyboard, with a real screen
reader."""

import re

import hands
from chapters import conversation, records, staff
from chooser import choose_files
from expectations import display_date_time, expect, session_row
from hearing import Focus
from passwords import ALL_PASSWORDS, DEMO_PASSWORD
from reader import Reader
from stage import DEMO_ADMIN, DEMO_CLIENT
from waiting import wait_for

MESSAGE = "I will bring my passport."
NOTE = " Both signers are known here."
# Far more than there are controls on any screen.
MOST_STOPS = 60


def from_end_to_end(stage):
    """From a sign-in to the end of an office's work. What was said is kept beside the pictures."""
    with Reader(stage.tray.desktop) as reader:
        try:
            reader.wait_for(f"{stage.client.wait_for_window().name} frame.")
            with Focus() as focus:
                _step(reader, focus)
            _as_client(stage, reader)
            staff.sign_out(stage)
            _as_office(stage, reader)
            staff.sign_out(stage)
            _expect_no_password(reader)
        finally:
            said = reader.transcript()
            (stage.album.folder / "heard.txt").write_text("\n".join([*said, ""]), encoding="utf-8")


def _as_client(stage, reader):
    _sign_in(reader, DEMO_CLIENT)
    reader.wait_for("Sessions", "Search name, signer")
    _hear_session(stage, reader)
    _send_message(stage, reader)
    _upload(stage, reader)
    _walk_booking(reader)
    _hear_sidebar(stage, reader)
    hands.press("F6")
    reader.wait_for("Book Remote Notary", "Name text.")
    hands.press("ctrl+comma")
    reader.wait_for("Settings", "Full Name text.")


def _sign_in(reader, email):
    """From wherever the focus is in the content."""
    hands.press("ctrl+shift+s")
    reader.wait_for("Sessions", "Email text.")
    hands.write(email)
    hands.press("Tab")
    reader.wait_for("Password password text.")
    hands.write(DEMO_PASSWORD)
    hands.press("Return")


def _hear_session(stage, reader):
    session = next(session for session in stage.bridge.visible_sessions(DEMO_CLIENT)
                   if session["notary_id"] and session["status"] in ("requested", "pending", "confirmed"))
    row = stage.screen.wait("list item", session_row(session))
    stage.person.click_on(row)
    wait_for(lambda: "selected" in row.states, "the session to be selected")
    stage.screen.wait("push button", "Cancel Session")
    reader.forget()
    hands.press("F6")
    reader.wait_for("Session panel.", f"{display_date_time(session)}, No Witness Required, Assigned Notary: ",
                    "Cancel Session push button.")


def _send_message(stage, reader):
    _tab_to(reader, "New Message")
    hands.write(MESSAGE)
    wait_for(lambda: stage.screen.wait("text", "New Message").text == MESSAGE, "the message to be written")
    hands.press("ctrl+Return")
    wait_for(lambda: stage.screen.wait("text", "New Message").text == "", "the message to be sent")
    reader.forget()
    hands.press("shift+Tab")
    reader.wait_for("Messages.", MESSAGE)


def _upload(stage, reader):
    files = conversation.make_files(stage.tray.desktop.home)
    choose_files(stage, *conversation.CHOOSER, files)
    stage.screen.wait_reads("Ready to Upload")
    stage.person.press_button(conversation.UPLOAD)
    stage.screen.wait_reads("Upload complete.")
    reader.wait_for("percent")
    stage.person.click("text", conversation.EDITOR)
    reader.wait_for("New Message text.")


def _walk_booking(reader):
    """Every stop says what it is."""
    hands.press("ctrl+shift+b")
    reader.wait_for("Book Remote Notary", "Name text.")
    _tab_to(reader, "ASAP, earliest available")
    hands.press("Tab")
    reader.wait_for("Preferred Date & Time, month, ")
    hands.press("ctrl+Right")
    reader.wait_for("day, ")
    hands.press("ctrl+Right")
    reader.wait_for("year, ")
    hands.press("Up")
    reader.wait_for("Preferred Date & Time ")
    _tab_to(reader, "Submit Remote Notary Request")
    # What is missing is told, and then the field that lacks it.
    hands.press("space")
    reader.wait_for("alert Missing Information", "OK push button")
    hands.press("Return")
    reader.wait_for("What needs to be notarized?")


def _hear_sidebar(stage, reader):
    hands.press("F6")
    reader.wait_for("Main.", "List with 3 items.")
    hands.press("ctrl+shift+s")
    reader.wait_for("Sessions.", "3 of 3", "selected.")
    hands.press("ctrl+shift+b")
    reader.wait_for("Book Remote Notary.", "2 of 3", "selected.")
    stage.wait_for_section("Book Remote Notary")


def _as_office(stage, reader):
    with Focus() as focus:
        _step(reader, focus)
    _sign_in(reader, DEMO_ADMIN)
    reader.wait_for("Sessions", "Search name, signer")
    stage.open("Records")
    stage.person.click_on(wait_for(lambda: stage.rows("Records"), "the records")[0])
    stage.screen.wait("panel", records.PANE)
    hands.press("F6")
    _tab_to(reader, "Notes")
    hands.press("End")
    hands.write(NOTE)
    _tab_to(reader, "Save Record")
    hands.press("space")
    reader.wait_for("alert Saved", "OK push button")
    hands.press("Return")
    stage.screen.wait_gone("alert", "Saved")


def _tab_to(reader, name):
    """Every stop on the way is told by its name."""
    with Focus() as focus:
        for _ in range(MOST_STOPS):
            if _step(reader, focus) == name:
                return
    raise AssertionError(f'No stop of {MOST_STOPS} is "{name}".')


def _step(reader, focus):
    """Returns the name of the next stop, once it was said."""
    hands.press("Tab")
    stop = focus.wait_for_move()
    reader.wait_for(stop)
    return stop


def _expect_no_password(reader):
    said = reader.transcript()
    # A person who types one letter after the other hears each as a word of its own.
    letters = [phrase for phrase in said if re.fullmatch(r"\w", phrase)]
    expect(not letters, f"The screen reader spelled {letters}.")
    told = [phrase for phrase in said if any(password in phrase for password in ALL_PASSWORDS)]
    expect(not told, "The screen reader said a password.")
    expect(any("•" in phrase for phrase in said), "Nothing that was typed into a concealed field was heard.")
