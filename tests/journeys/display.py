"""A desktop that nobody sees: X server, window manager and session bus, made for one journey and gone after it."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from hands import lay_out_keyboard
from pictures import FrameBuffer
from waiting import wait_for

# Larger than the largest window of the journey, so that the window manager never has to move or shrink one.
SCREEN = "2400x1600x24"
# Requests to the kernel, from <sys/prctl.h>.
SET_PARENT_DEATH_SIGNAL = 1
SET_CHILD_SUBREAPER = 36


class Processes:
    """Programs started for the journey. `end()` ends them and everything that they started, newest first."""

    def __init__(self):
        self._prctl = ctypes.CDLL(None, use_errno=True).prctl
        # What a bus activates outlives its parent; as the nearest subreaper this process inherits it.
        self._prctl(SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self._started = []

    def start(self, arguments, environment, **options):
        """A program that also ends when this process is killed. Ctrl+C does not reach it."""
        process = subprocess.Popen(arguments, env=environment, start_new_session=True,
                                   preexec_fn=self._die_with_parent, **options)
        self._started.append(process)
        return process

    def _die_with_parent(self):
        self._prctl(SET_PARENT_DEATH_SIGNAL, signal.SIGTERM, 0, 0, 0)

    def end(self):
        for process in reversed(self._started):
            end(process)
        while orphans := _children_of(os.getpid()):
            for orphan in orphans:
                os.kill(orphan, signal.SIGKILL)
                os.waitpid(orphan, 0)


def end(process):
    """Asks a program to stop, and makes it stop when it does not."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


def _children_of(parent):
    children = Path(f"/proc/{parent}/task/{parent}/children")
    return [int(child) for child in children.read_text(encoding="ascii").split()]


class Desktop:
    """The desktop as a context manager. `environment` is what a program needs to run on it; `frame_buffer`
    is what it shows; `home` is its empty home folder."""

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="quorvel-journey-"))
        self.processes = Processes()
        try:
            self.environment = self._environment()
            self._start_display()
            self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        # The accessibility library and the input simulator run in this process and its children.
        os.environ.clear()
        os.environ.update(self.environment)
        lay_out_keyboard()
        return self

    def __exit__(self, *_):
        self.processes.end()
        shutil.rmtree(self.folder, ignore_errors=True)

    @property
    def home(self):
        return self.folder / "home"

    def _environment(self):
        """Nothing of the caller's desktop gets in: no theme, no portal, no preferences, no input method."""
        environment = {
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LANG": "C.UTF-8",
            "HOME": str(self.home),
            # Not New York's zone, so that a time that is not converted shows itself.
            "TZ": "America/Los_Angeles",
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # What the desktop's services would keep in the home of the client, which is looked into.
            "GSETTINGS_BACKEND": "memory",
        }
        for variable, name in {"XDG_CONFIG_HOME": ".config", "XDG_DATA_HOME": ".local/share",
                               "XDG_CACHE_HOME": ".cache", "XDG_STATE_HOME": ".local/state",
                               "XDG_RUNTIME_DIR": "../runtime"}.items():
            folder = (self.home / name).resolve()
            folder.mkdir(mode=0o700, parents=True)
            environment[variable] = str(folder)
        return environment

    def _start_display(self):
        read, write = os.pipe()
        self.processes.start(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset",
             "-fbdir", self.folder],
            self.environment, pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError("The virtual display did not start.")
        self.frame_buffer = FrameBuffer(self.folder / "Xvfb_screen0")
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        bus = self.processes.start(
            ["dbus-daemon", "--session", "--nofork", "--print-address"],
            self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def _start_window_manager(self):
        self.processes.start(["openbox", "--sm-disable"], self.environment,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(self._is_managed, "a window manager")

    def _is_managed(self):
        answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.environment,
                                capture_output=True, text=True, check=True)
        return "window id" in answer.stdout
