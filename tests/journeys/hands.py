"""Mouse and keyboard of the virtual display: nothing here knows what is on the screen."""

import os
import subprocess

# Keys that no keyboard here has otherwise. They carry what the journey types beyond ASCII from the start, since
# a layout that changes while it is typed on loses keystrokes.
SPARE_KEYS = [f"<FK{number}>" for number in range(13, 25)]
BEYOND_ASCII = "ÄäéëïöüØ“”😀京"

WHEEL_UP, WHEEL_DOWN = "4", "5"


def lay_out_keyboard():
    """Gives the display an American layout with the spare keys; to be called before any program runs on it."""
    spare = "".join(f"replace key {key} {{ [ U{ord(character):04X} ] }};"
                    for key, character in zip(SPARE_KEYS, BEYOND_ASCII, strict=True))
    keymap = f"""xkb_keymap {{
        xkb_keycodes {{ include "evdev+aliases(qwerty)" }};
        xkb_types {{ include "complete" }};
        xkb_compat {{ include "complete" }};
        xkb_symbols {{ include "pc+us+inet(evdev)" {spare} }};
    }};"""
    subprocess.run(["xkbcomp", "-w", "0", "-", os.environ["DISPLAY"]], input=keymap, text=True, check=True)


def move(x, y):
    _xdotool("mousemove", str(x), str(y))


def click(x, y, holding=None):
    held = ["keydown", holding] if holding else []
    released = ["keyup", holding] if holding else []
    _xdotool("mousemove", str(x), str(y), *held, "click", "1", *released)


def context_click(x, y):
    move(x, y)
    _xdotool("click", "3")


def wheel(x, y, direction, notches=1):
    _xdotool("mousemove", str(x), str(y), "click", "--repeat", str(notches), "--delay", "1", direction)


def press(*keys):
    """Each key as xdotool names it, for example "Return" or "ctrl+a"."""
    _xdotool("key", "--delay", "2", *keys)


def write(text):
    """Types a text of one line."""
    strange = [character for character in text if not character.isascii() and character not in BEYOND_ASCII]
    if strange:
        raise ValueError(f"The keyboard has no key for {strange}.")
    if text:
        _xdotool("type", "--delay", "2", "--", text)


def resize_active_window(width, height):
    _xdotool("getactivewindow", "windowsize", str(width), str(height))


def active_process():
    """The process whose window takes the keys and has come to the front, or None."""
    found = subprocess.run(["xdotool", "getactivewindow", "getwindowpid"], capture_output=True, text=True, check=False)
    return int(found.stdout) if found.returncode == 0 else None


def close_active_window():
    """As the window manager's own close button does."""
    _xdotool("key", "alt+F4")


def _xdotool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True)
