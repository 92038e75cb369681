"""Waiting for a thing itself, never for time to pass."""

import time

# Far beyond what anything here takes, so that only a thing that will never happen runs into it.
DEADLINE_SECONDS = 60
INTERVAL_SECONDS = 0.05


class NeverHappened(AssertionError):
    """What was waited for did not happen."""


def wait_for(condition, what, interval=INTERVAL_SECONDS):
    """Polls until `condition()` is truthy and returns its value; raises NeverHappened, naming `what`."""
    latest = time.monotonic() + DEADLINE_SECONDS
    while not (value := condition()):
        if time.monotonic() > latest:
            raise NeverHappened(f"Waited {DEADLINE_SECONDS} s in vain for {what}.")
        time.sleep(interval)
    return value
