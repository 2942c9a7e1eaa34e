# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes what clients of the display say to the desktop: which moment a window is to be
activated as of, and how starts of programs go on."""

import ctypes

x11 = ctypes.CDLL("libX11.so.6")
CLIENT_MESSAGE = 33
SUBSTRUCTURE_NOTIFY, PROPERTY_CHANGE = 1 << 19, 1 << 22


class Message(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("is_sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("atom", ctypes.c_ulong), ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                ("rest", ctypes.c_long * 12)]


def bytes_of(message: Message) -> bytes:
    return ctypes.string_at(ctypes.byref(message.data), 20)


x11.XOpenDisplay.restype = ctypes.c_void_p
x11.XDefaultRootWindow.restype = x11.XInternAtom.restype = ctypes.c_ulong
display = ctypes.c_void_p(x11.XOpenDisplay(None))
root = ctypes.c_ulong(x11.XDefaultRootWindow(display))
begin, more, active = (x11.XInternAtom(display, name, 0) for name in (
    b"_NET_STARTUP_INFO_BEGIN", b"_NET_STARTUP_INFO", b"_NET_ACTIVE_WINDOW"))
x11.XSelectInput(display, root, ctypes.c_long(SUBSTRUCTURE_NOTIFY | PROPERTY_CHANGE))
x11.XSync(display, 0)
print("listening", flush=True)
text = b""
while True:
    event = Message()
    x11.XNextEvent(display, ctypes.byref(event))
    if event.type != CLIENT_MESSAGE:
        continue
    if event.atom == active:
        print("activate", event.data[1], flush=True)
    elif event.atom in (begin, more):
        text = (b"" if event.atom == begin else text) + bytes_of(event)
        if b"\0" in text:
            print("startup", text.split(b"\0")[0].decode(), flush=True)
