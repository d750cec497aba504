"""Asks a window to close as its close box does, also one that is out of sight."""

import ctypes


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]


_CLIENT_MESSAGE = 33
_TO_WINDOW_MANAGER = 1 << 19 | 1 << 20

_xlib = ctypes.CDLL("libX11.so.6")
_xlib.XOpenDisplay.restype = ctypes.c_void_p
_xlib.XDefaultRootWindow.restype = ctypes.c_ulong
_xlib.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
_xlib.XInternAtom.restype = ctypes.c_ulong
_xlib.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
_xlib.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
_xlib.XCloseDisplay.argtypes = [ctypes.c_void_p]


def close_window(window):
    display = _xlib.XOpenDisplay(None)
    message = _ClientMessage(type=_CLIENT_MESSAGE, window=int(window), format=32,
                             message_type=_xlib.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0))
    message.data[1] = 2
    _xlib.XSendEvent(display, _xlib.XDefaultRootWindow(display), 0, _TO_WINDOW_MANAGER, ctypes.byref(message))
    _xlib.XCloseDisplay(display)
