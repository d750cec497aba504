"""Waiting for something to become true."""

import time


class TimedOut(AssertionError):
    """What was waited for did not happen in time."""


def shown(value):
    """A value in a message; a long text only with its beginning."""
    text = repr(value)
    return text if len(text) <= 300 else f"{text[:300]}... ({len(text)} characters)"


def wait_until(what, condition, timeout=10.0):
    """Asks `condition` until it gives something true and returns that; fails after `timeout` seconds."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise TimedOut(f"not within {timeout} s: {what} (at last {shown(value)})")
        time.sleep(0.005)


def wait_equal(what, expected, read, timeout=10.0):
    """Reads until the value is the expected one; a failure shows both."""
    seen = []

    def is_equal():
        seen[:] = [read()]
        return seen[0] == expected

    try:
        wait_until(what, is_equal, timeout)
    except TimedOut:
        raise TimedOut(f"{what}: expected {shown(expected)}, after {timeout} s it is {shown(seen[0])}") from None
