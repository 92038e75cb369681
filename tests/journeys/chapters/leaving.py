"""Closing the window, and the ways back to it and out."""

import hands
from chapters import booking, conversation
from chapters.signing_in import expect_remembered
from expectations import expect, expect_equal
from passwords import ALL_PASSWORDS
from stage import DEMO_ADMIN

# Besides caches, which the libraries that draw fill.
TIDY_HOME = {".config/Quorvel/Quorvel.conf", *booking.FILE_NAMES, *conversation.FILE_NAMES}


def close_and_come_back(stage):
    """Without a window the client lives on in the tray, which brings the window back where somebody wants to be."""
    stage.tray.wait_for_item()
    hands.close_active_window()
    stage.client.wait_until_closed()
    expect(stage.client.is_running(), "Closing the window ended the client.")
    stage.tray.choose("Sessions")
    expect_equal(stage.client.wait_for_window().name, "Sessions", "the section opened from the tray")
    stage.wait_until_loaded()


def start_again(stage):
    """A second start brings the window back, where the desktop's action for it leads, and ends."""
    for arguments, section in (((), "Sessions"), (("--action=book-remote-notary",), "Book Remote Notary")):
        hands.close_active_window()
        stage.client.wait_until_closed()
        expect_equal(stage.client.start_again(*arguments), 0, "the exit code of the second start")
        stage.wait_for_section(section)


def expect_still_signed_in(stage):
    stage.screen.wait_reads("Maya Whitfield")
    stage.screen.wait("push button", "Sign Out")
    expect_remembered(stage, DEMO_ADMIN)


def quit_from_tray(stage):
    stage.tray.wait_for_item()
    expect("Quit Quorvel" in stage.tray.titles(), "The tray's menu has no way out.")
    stage.tray.choose("Quit Quorvel")
    expect_end(stage)


def expect_end(stage):
    expect_equal(stage.client.process.wait(timeout=30), 0, "the exit code")


def expect_tidy_home(stage):
    """The client keeps its preferences and nothing else, the file chooser's memory included."""
    kept = {file for file in stage.client.files_at_home() if not file.startswith(".cache/")}
    expect_equal(kept, TIDY_HOME, "the files in the home folder")


def expect_discreet(stage):
    """Terminals and journals are read by others: no password, token or text of somebody's gets there."""
    printed = stage.client.printed()
    written = {booking.FORM.details, booking.FORM.notes, *conversation.MESSAGE}
    secrets = stage.secrets | written | set(ALL_PASSWORDS)
    told = [secret for secret in secrets if secret.encode() in printed]
    expect(not told, f"The client printed {told}.")
    expect(len(stage.secrets) >= 2, "No token was seen, so none could be missed.")
