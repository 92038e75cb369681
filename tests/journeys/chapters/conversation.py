"""The detail of a client's session: messages to the notary, documents into the session, and what is not sent yet."""

from pathlib import Path

import hands
from bridge import StoredUpload, sha256
from chooser import choose_files
from expectations import expect, expect_equal
from stage import DEMO_CLIENT
from waiting import wait_for

EDITOR = "New Message"
# Two lines.
MESSAGE = ["May my daughter Zoë join? <b>Sharp</b> & \"on time\" 😀", "She has her own “passport”; 100% sure."]
# What opens the chooser, which is titled alike, and what takes the files.
CHOOSER = ("Choose Files for This Session", "Add Files")
LABEL = "Document label, e.g. Passport, Power of Attorney, Closing Package"
FILE_NAMES = ["daughter-passport.jpg", "questions_for Zoë & co.txt"]
UPLOAD = "Upload Files to Session"


def make_files(home: Path):
    picture, text = (home / name for name in FILE_NAMES)
    picture.write_bytes(b"\xff\xd8\xff\xe0" + bytes(range(255, -1, -1)) * 300)
    text.write_text("Is one witness enough?\n" * 50, encoding="utf-8")
    return [picture, text]


def keep_unsent(stage):
    """Whoever chooses another session with a message half written is asked, and may stay."""
    stage.person.fill(EDITOR, MESSAGE[0])
    session, other = stage.rows("Sessions")[:2]
    stage.person.click_on(other)
    stage.person.answer("Discard Changes?", "What you entered here has not been sent or saved yet.", "Keep Editing",
                        picture=lambda: stage.picture("question"))
    wait_for(lambda: "selected" in session.states, "the session that is written to, to stay selected")
    expect_equal(stage.screen.wait("text", EDITOR).text, MESSAGE[0], "the message after keeping it")
    expect_equal(stage.bridge.messages(stage.bridge.newest_session()["id"]), [], "the messages so far")


def send_message(stage):
    """By keyboard alone; blanks are no message."""
    session = stage.bridge.newest_session()
    editor = stage.person.fill(EDITOR, "   ")
    hands.press("ctrl+Return", "ctrl+a")
    hands.write(MESSAGE[0])
    hands.press("Return")
    hands.write(MESSAGE[1])
    wait_for(lambda: editor.text == "\n".join(MESSAGE), "both lines to be written")
    hands.press("ctrl+Return")
    wait_for(lambda: _thread(stage) == ["\n".join(MESSAGE)], "the message to appear in the thread")
    wait_for(lambda: editor.text == "", "the editor to be empty again")
    (message,) = stage.bridge.messages(session["id"])
    expect_equal({key: message[key] for key in ("message", "sender_type", "sender_name", "sender_email")},
                 {"message": "\n".join(MESSAGE), "sender_type": "client", "sender_name": "Priya Raman",
                  "sender_email": DEMO_CLIENT}, "the stored message")
    stage.picture("sessions-client-message")


def upload(stage, files):
    """Chosen, labelled and sent one after another, byte for byte."""
    session = stage.bridge.newest_session()
    before = stage.bridge.uploads(session["id"])
    expect("enabled" not in stage.screen.wait("push button", UPLOAD).states, "There is nothing to upload yet.")
    choose_files(stage, *CHOOSER, files)
    stage.screen.wait_reads("Ready to Upload")
    stage.person.fill(LABEL, "Passport of my daughter")
    stage.person.choose("Type", "Notarized Document", place=1)
    stage.person.reveal(stage.screen.wait("push button", UPLOAD))
    stage.picture("sessions-client-uploads")
    stage.person.press_button(UPLOAD)
    stage.screen.wait_reads("Upload complete.")
    stage.screen.wait("list item", "Passport of my daughter")
    expect(not stage.screen.reads("Ready to Upload"), "Files that have arrived still wait to be sent.")
    picture, text = files
    expect_equal(stage.bridge.uploads(session["id"]), [
        *before,
        StoredUpload(picture.name, "Passport of my daughter", "government_id", "image/jpeg", sha256(picture)),
        StoredUpload(text.name, "questions for Zoë & co", "notarized_document", "text/plain", sha256(text)),
    ], "the stored documents")


def look(stage):
    """The session from its beginning to its end."""
    stage.open("Sessions")
    stage.screen.wait("text", EDITOR)
    stage.picture("sessions-client")
    stage.person.reveal(stage.screen.wait("push button", UPLOAD))
    stage.picture("sessions-client-documents")


def _thread(stage):
    thread = stage.screen.find("list", "Messages")
    return [text.text for text in stage.screen.find_all("text", within=thread)] if thread else []
