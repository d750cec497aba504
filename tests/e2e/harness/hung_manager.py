"""A clipboard manager that hangs: it says that it runs, and answers nothing."""

from .xlib import xlib


class HungManager:
    """Hangs until the with block ends."""

    def __enter__(self):
        self._display = xlib.XOpenDisplay(None)
        root = xlib.XDefaultRootWindow(self._display)
        window = xlib.XCreateSimpleWindow(self._display, root, 0, 0, 1, 1, 0, 0, 0)
        manager = xlib.XInternAtom(self._display, b"CLIPBOARD_MANAGER", 0)
        xlib.XSetSelectionOwner(self._display, manager, window, 0)
        xlib.XSync(self._display, 0)
        return self

    def __exit__(self, *_):
        xlib.XCloseDisplay(self._display)
