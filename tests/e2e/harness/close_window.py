"""Asks a window to close as its close box does, also one that is out of sight."""

import ctypes

from .xlib import xlib


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]


_CLIENT_MESSAGE = 33
_TO_WINDOW_MANAGER = 1 << 19 | 1 << 20


def close_window(window):
    display = xlib.XOpenDisplay(None)
    message = _ClientMessage(type=_CLIENT_MESSAGE, window=int(window), format=32,
                             message_type=xlib.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0))
    message.data[1] = 2
    xlib.XSendEvent(display, xlib.XDefaultRootWindow(display), 0, _TO_WINDOW_MANAGER, ctypes.byref(message))
    xlib.XCloseDisplay(display)
