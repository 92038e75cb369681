"""Installs the packages in a clean root, starts the programs as a desktop and a person would, and removes the packages.

The root holds Debian's essential packages, what the packages say they depend on, and a session bus, all copied from
this machine; nothing else of this machine, of the sources or of the build tree is in it. So a dependency that is not declared, a file that
is not packed, and a path that leads into the build tree each show as a program that does not start. What is not
proved: that the packages' maintainer scripts run on a machine where their dependencies were set up in another way,
as only a whole installation would."""

import argparse
import configparser
import os
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

JOURNEYS = Path(__file__).resolve().parent.parent / "journeys"
sys.path.insert(0, str(JOURNEYS))

from clean_root import BARE, CleanRoot, Installed, NotHere, Stanza  # noqa: E402
from display import Desktop, end  # noqa: E402
from waiting import wait_for  # noqa: E402

DESKTOP_ID = "app.quorvel.Quorvel"
LAUNCHER = f"usr/share/applications/{DESKTOP_ID}.desktop"
SKIPPED = 77
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
CLIENT_FILES = {
    "usr/bin/quorvel",
    LAUNCHER,
    f"usr/share/dbus-1/services/{DESKTOP_ID}.service",
    f"usr/share/metainfo/{DESKTOP_ID}.metainfo.xml",
    *(f"usr/share/icons/hicolor/{size}x{size}/apps/{DESKTOP_ID}.png" for size in ICON_SIZES),
    f"usr/share/icons/hicolor/scalable/apps/{DESKTOP_ID}.svg",
    f"usr/share/icons/hicolor/symbolic/apps/{DESKTOP_ID}-symbolic.svg",
    "usr/share/quorvel/GoogleService-Info.plist",
    "usr/share/man/man1/quorvel.1.gz",
    "usr/share/doc/quorvel/changelog.gz",
    "usr/share/doc/quorvel/copyright",
}
# The bus of a desktop's session, with its tools; nothing that the programs themselves load.
BUS = ("dbus-daemon", "dbus-bin")
BRIDGE_FILES = {
    "usr/bin/quorvel-bridge",
    "usr/lib/systemd/user/quorvel-bridge.service",
    "usr/share/man/man1/quorvel-bridge.1.gz",
    "usr/share/doc/quorvel-bridge/changelog.gz",
    "usr/share/doc/quorvel-bridge/copyright",
}


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


def files_of(root, package):
    paths = root.run("dpkg", "--listfiles", package).split()
    return {path.lstrip("/") for path in paths if not (root.folder / path.lstrip("/")).is_dir()}


def entry(root, path, section):
    """One section of a file in the key file format."""
    file = configparser.RawConfigParser(delimiters="=")
    file.optionxform = str
    file.read(root.folder / path, encoding="utf-8")
    return file[section]


def windows(root, desktop):
    """The visible windows that the desktop would attribute to the entry."""
    name = entry(root, LAUNCHER, "Desktop Entry")["StartupWMClass"]
    answer = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", f"^{name}$"],
                            env=desktop.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                            check=False)
    return answer.stdout.split()


def expect_start_by_hand(root, desktop, section, environment):
    """What a section of the entry says shows a window with the program's icon."""
    program = desktop.processes.start(root.command(*shlex.split(entry(root, LAUNCHER, section)["Exec"])),
                                      BARE | environment)

    def shown():
        expect(program.poll() is None, f"The client ended by itself with status {program.returncode}.")
        return windows(root, desktop)

    (window, *_) = wait_for(shown, "the window")
    properties = subprocess.run(["xprop", "-id", window, "_NET_WM_ICON"], env=desktop.environment,
                                capture_output=True, text=True, check=True).stdout
    expect("Icon (" in properties, f"The window has no icon: {properties}")
    end(program)
    wait_for(lambda: not windows(root, desktop), "the window to go")


def expect_start_by_bus(root, desktop, environment):
    """The bus starts the program by its service file; a start by hand then calls that one and ends."""
    by_hand = entry(root, LAUNCHER, "Desktop Action sessions")["Exec"]
    session = desktop.processes.start(
        root.command("dbus-run-session", "--", "sh", "-ec",
                     "dbus-send --session --print-reply --dest=org.freedesktop.DBus / "
                     f"org.freedesktop.DBus.StartServiceByName string:{DESKTOP_ID} uint32:0 >&2; "
                     f"{by_hand}; echo handed over; exec cat"),
        BARE | environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    expect(session.stdout.readline() == "handed over\n", "The program that the bus started was not called.")
    (window, *_) = wait_for(lambda: windows(root, desktop), "the window")
    owner = subprocess.run(["xdotool", "getwindowpid", window], env=desktop.environment,
                           stdout=subprocess.PIPE, text=True, check=True).stdout
    os.kill(int(owner), signal.SIGTERM)
    wait_for(lambda: not windows(root, desktop), "the window to go")
    session.stdin.close()
    expect(session.wait() == 0, "The session did not end well.")


def expect_bridge(root, desktop):
    """The bridge serves with what its package brings, and ends as it should."""
    bridge = desktop.processes.start(
        root.command("quorvel-bridge", "--data", "/root/bridge", "--listen", "127.0.0.1:0", "--demo"),
        BARE, stdout=subprocess.PIPE, text=True)
    expect(any(line.startswith("Listening on ") for line in bridge.stdout), "The bridge did not start.")
    end(bridge)
    expect(bridge.returncode == 0, f"The bridge ended with status {bridge.returncode}.")


def expect_named_files(root):
    """What the desktop's files name is there."""
    service = entry(root, f"usr/share/dbus-1/services/{DESKTOP_ID}.service", "D-BUS Service")
    expect(service["Name"] == DESKTOP_ID, f"The bus would look for {service['Name']}.")
    unit = entry(root, "usr/lib/systemd/user/quorvel-bridge.service", "Service")
    for command in (service["Exec"], unit["ExecStart"]):
        program = shlex.split(command)[0]
        expect((root.folder / program.lstrip("/")).is_file(), f"There is no {program}.")
    launcher = entry(root, LAUNCHER, "Desktop Entry")
    expect(launcher["Icon"] == DESKTOP_ID, f"The entry's icon is {launcher['Icon']}.")


def empty(folder):
    for path in folder.iterdir():
        shutil.rmtree(path) if path.is_dir() else path.unlink()


def differences(before, after):
    """In words; nothing when only dpkg's own memory differs."""
    return [f"{path}: {before.get(path, 'absent')} before, {after.get(path, 'absent')} after"
            for path in sorted(before.keys() | after.keys())
            if before.get(path) != after.get(path) and not is_memory(path)]


def is_memory(path):
    """Whether dpkg changes a file with every package that comes and goes. What it knows of each package is no such."""
    return path.startswith(("var/lib/dpkg/", "var/log/")) and not path.startswith("var/lib/dpkg/info/")


def prove(packages, folder, desktop):
    installed = Installed()
    stanzas = [Stanza.of_file(package) for package in packages]
    needed = {needed.key: needed for stanza in stanzas for needed in installed.depended_on(stanza)}
    always = installed.essential() + installed.named(BUS)
    needed |= {needed.key: needed for needed in installed.closure(always)}
    root = CleanRoot(folder, list(needed.values()))
    for package in packages:
        shutil.copy(package, root.folder / "tmp")

    before = root.listing()
    root.run("dpkg", "--install", *(f"/tmp/{package.name}" for package in packages))
    for name, expected in {"quorvel": CLIENT_FILES, "quorvel-bridge": BRIDGE_FILES}.items():
        found = files_of(root, name)
        expect(found == expected, f"{name} brings {found - expected} unasked and lacks {expected - found}.")
    expect_named_files(root)
    user = {"HOME": "/root", "XDG_RUNTIME_DIR": "/root/run", "DISPLAY": desktop.environment["DISPLAY"]}
    (root.folder / "root/run").mkdir(mode=0o700)
    expect_start_by_hand(root, desktop, "Desktop Entry", user)
    expect_start_by_hand(root, desktop, "Desktop Action sessions", user)
    expect_start_by_bus(root, desktop, user)
    expect_bridge(root, desktop)

    empty(root.folder / "root")
    root.run("dpkg", "--purge", "quorvel", "quorvel-bridge")
    left = differences(before, root.listing())
    expect(not left, "Removing left traces:\n" + "\n".join(left))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=Path, help="where the packages are")
    packages = sorted(parser.parse_args().folder.glob("*.deb"))
    expect(len(packages) == 2, f"These are not two packages: {packages}")
    with tempfile.TemporaryDirectory(prefix="quorvel-root-") as folder, Desktop() as desktop:
        try:
            prove(packages, Path(folder), desktop)
        except NotHere as reason:
            print(f"Skipped. {reason}")
            sys.exit(SKIPPED)


if __name__ == "__main__":
    main()
