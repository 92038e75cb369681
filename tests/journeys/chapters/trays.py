"""The client's item in the desktop's tray: its menu for everybody, trays that come and go, and none at all."""

import time
from dataclasses import replace
from urllib.parse import urlsplit

import hands
from chapters import leaving
from chapters.signing_in import expect_nobody_remembered
from chapters.staff import WORKSPACES
from client import Conditions
from expectations import expect, expect_equal
from hearing import Hearing
from older_tray import DARK, LIGHT, OlderTray
from passwords import DEMO_PASSWORD
from waiting import wait_for

IN_BACKGROUND = Conditions(arguments=("--background",), opens_window=False)
# How long a start in the background leaves the desktop time for its tray.
PATIENCE_SECONDS = 5
ICON_NAME = "app.quorvel.Quorvel-symbolic"
TWO_ROLES = "marta.kowal@example.com"

ALWAYS = ["Book Remote Notary", "Sessions"]
AT_THE_END = ["Open App", "Open Website", "Quit Quorvel"]
MENU_OF_NOBODY = ["Quorvel", "Remote Notary", "", *ALWAYS, "", "Login", "", *AT_THE_END]


def menu_of(name, role, *workspaces):
    return [name, role, "", *ALWAYS, "", *workspaces, "", "Profile & Settings", "Log Out", "", *AT_THE_END]


# The office's items come first here, and last in the sidebar.
MENU_OF_OFFICE = menu_of("Maya Whitfield", "Admin", *WORKSPACES[1:], WORKSPACES[0])


def for_nobody(stage):
    _expect_menu(stage, MENU_OF_NOBODY)
    _choose(stage, "Login", "Book Remote Notary")
    stage.screen.wait("password text", "Password")
    _choose(stage, "Open App", "Dashboard")


def for_client(stage):
    _expect_menu(stage, menu_of("Priya Raman", "Client"))
    _choose(stage, "Profile & Settings", "Settings")
    _choose(stage, "Book Remote Notary", "Book Remote Notary")


def for_notary(stage):
    _expect_menu(stage, menu_of("Samuel Adeyemi", "Notary", "Notary Dashboard"))
    _choose(stage, "Notary Dashboard", "Notary Dashboard")


def for_business(stage):
    _expect_menu(stage, menu_of("Helen Brandt", "Business", "Business Dashboard"))
    _choose(stage, "Business Dashboard", "Business")


def for_office(stage):
    _expect_menu(stage, MENU_OF_OFFICE)
    _choose(stage, "Users", "Users")


def for_two_roles(stage):
    """A notary who works for a law firm for a while, all of it through the menu."""
    role = stage.bridge.user(TWO_ROLES)["role"]
    stage.bridge.give_role(TWO_ROLES, "law_firm")
    _choose(stage, "Login", "Book Remote Notary")
    stage.sign_in(TWO_ROLES, DEMO_PASSWORD)
    stage.screen.wait_gone("password text", "Password")
    _expect_menu(stage, menu_of("Marta Kowal", "Notary", "Notary Dashboard", "Business Dashboard"))
    _choose(stage, "Log Out", "Dashboard")
    _expect_menu(stage, MENU_OF_NOBODY)
    expect_nobody_remembered(stage)
    stage.bridge.give_role(TWO_ROLES, role)


def go_and_come_back(stage):
    """While there is none, the window is what is left, and another start the way to it."""
    stage.tray.stop()
    stage.open("Sessions")
    leaving.start_again(stage)
    _close(stage)
    stage.tray.start()
    _expect_menu(stage, MENU_OF_OFFICE)
    _choose(stage, "Records", "Records")
    _close(stage)
    stage.tray.click()
    stage.wait_for_section("Records")
    leaving.quit_from_tray(stage)


def start_in_background(stage, start):
    """The item alone, by the icon that the desktop fits to its panel. It leads to the website without a window."""
    tools, opened = _make_opener(stage.tray.desktop.folder)
    stage = start(replace(IN_BACKGROUND, environment={"PATH": f"{tools}:/usr/bin:/bin"}))
    stage.tray.wait_for_item()
    expect(not stage.client.has_window(), "A start in the background opened a window.")
    expect_equal(stage.tray.icon_name(), ICON_NAME, "the icon in the tray")
    stage.tray.choose("Open Website")
    wait_for(opened.exists, "the website to be opened")
    expect_equal(urlsplit(opened.read_text(encoding="ascii")).port, urlsplit(stage.bridge.address).port,
                 "the port of the website")
    expect(not stage.client.has_window(), "Opening the website opened the window.")
    _choose(stage, "Open App", "Dashboard")
    leaving.quit_from_tray(stage)


def start_before_tray(stage, start):
    """At the beginning of a session the tray may come a little later than the client."""
    stage.tray.stop()
    began = time.monotonic()
    stage = start(IN_BACKGROUND)
    stage.tray.start()
    stage.tray.wait_for_item()
    expect(not stage.client.has_window() or time.monotonic() - began > PATIENCE_SECONDS,
           "A start in the background did not wait for the tray.")
    _choose(stage, "Profile & Settings", "Settings")
    leaving.quit_from_tray(stage)


def start_without_tray(stage, start):
    """The window in its place; and the item once a tray comes after all."""
    stage.tray.stop()
    stage = start(IN_BACKGROUND)
    stage.client.wait_for_window()
    stage.open("Sessions")
    leaving.start_again(stage)
    stage.tray.start()
    _expect_menu(stage, MENU_OF_OFFICE)
    leaving.quit_from_tray(stage)


def older_tray(stage, start):
    """Which comes after the client, goes, and is there before the next."""
    stage.tray.stop()
    desktop = stage.tray.desktop
    stage = start(IN_BACKGROUND)
    with Hearing() as hearing:
        with OlderTray(desktop, DARK) as tray:
            icon = _expect_icon(stage, tray, "dark")
            hands.click(*icon.centre)
            menu = hearing.wait_for_menu()
            expect_equal(menu.name, "Quorvel", "what the menu is called")
            expect_equal([entry.name for entry in menu.children], MENU_OF_OFFICE, "the menu beside the older tray")
            stage.album.take(f"tray-menu-{stage.scheme}", menu.rect)
            _click(menu, "Sessions")
            stage.wait_for_section("Sessions")
            hands.context_click(*icon.centre)
            menu = hearing.wait_for_menu()
            hands.press("Escape")
            wait_for(lambda: "showing" not in menu.states, "the menu to close")
        with OlderTray(desktop, LIGHT) as tray:
            # With the other button again: twice the same so soon is a double click.
            hands.click(*_expect_icon(stage, tray, "light").centre)
            hearing.wait_for_menu()
            hands.press("Up", "Return")
            leaving.expect_end(stage)
            stage = start()
            hands.click(*tray.wait_for_icon().centre)
            _click(hearing.wait_for_menu(), "Quit Quorvel")
            leaving.expect_end(stage)
    stage.tray.start()


STARTS = [("a start in the background", start_in_background), ("a start before the tray", start_before_tray),
          ("a start without a tray", start_without_tray), ("the older kind of tray", older_tray)]


def _make_opener(folder):
    """What opens addresses on this desktop, and the file in which it notes the first."""
    tools, opened = folder / "tools", folder / "opened"
    tools.mkdir()
    opener = tools / "xdg-open"
    opener.write_text(f'#!/bin/sh\nprintf %s "$1" > {opened}.part && mv {opened}.part {opened}\n', encoding="ascii")
    opener.chmod(0o755)
    return tools, opened


def _expect_menu(stage, entries):
    stage.tray.wait_for_item()
    wait_for(lambda: stage.tray.titles()[0] == entries[0], f"the tray to greet {entries[0]}")
    expect_equal(stage.tray.titles(), entries, "the tray's menu")


def _choose(stage, title, section):
    stage.tray.choose(title)
    stage.wait_for_section(section)


def _close(stage):
    hands.close_active_window()
    stage.client.wait_until_closed()


def _expect_icon(stage, tray, panel):
    """Which fills most of its place, whatever the panel looks like. Returns the place."""
    place = tray.wait_for_icon()

    def is_painted():
        pixels = memoryview(stage.album.look(place)).cast("I")
        return sum(pixel != pixels[0] for pixel in pixels) > len(pixels) / 2

    wait_for(is_painted, "the icon in the tray to be painted")
    hands.move(1, 1)
    stage.album.take(f"tray-icon-{panel}", place)
    return place


def _click(menu, title):
    entry = next(entry for entry in menu.children if entry.name == title)
    hands.click(*entry.rect.centre)
