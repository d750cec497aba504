"""A clipboard manager that hangs: it says that it runs, and answers nothing."""

import ctypes

_xlib = ctypes.CDLL("libX11.so.6")
_xlib.XOpenDisplay.restype = ctypes.c_void_p
_xlib.XDefaultRootWindow.restype = ctypes.c_ulong
_xlib.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
_xlib.XInternAtom.restype = ctypes.c_ulong
_xlib.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
_xlib.XCreateSimpleWindow.restype = ctypes.c_ulong
_xlib.XCreateSimpleWindow.argtypes = [ctypes.c_void_p, ctypes.c_ulong, *[ctypes.c_int] * 2, *[ctypes.c_uint] * 3,
                                      *[ctypes.c_ulong] * 2]
_xlib.XSetSelectionOwner.argtypes = [ctypes.c_void_p, *[ctypes.c_ulong] * 3]
_xlib.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_xlib.XCloseDisplay.argtypes = [ctypes.c_void_p]


class HungManager:
    """Hangs until the with block ends."""

    def __enter__(self):
        self._display = _xlib.XOpenDisplay(None)
        root = _xlib.XDefaultRootWindow(self._display)
        window = _xlib.XCreateSimpleWindow(self._display, root, 0, 0, 1, 1, 0, 0, 0)
        manager = _xlib.XInternAtom(self._display, b"CLIPBOARD_MANAGER", 0)
        _xlib.XSetSelectionOwner(self._display, manager, window, 0)
        _xlib.XSync(self._display, 0)
        return self

    def __exit__(self, *_):
        _xlib.XCloseDisplay(self._display)
