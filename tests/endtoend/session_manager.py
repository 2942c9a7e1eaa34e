# SPDX-License-Identifier: GPL-3.0-or-later
"""A session manager of X11. It writes where it listens, and each line on standard input
ends the session: every client may save its state and is then told to end."""

import ctypes
import os
import select
import sys

ice = ctypes.CDLL("libICE.so.6")
sm = ctypes.CDLL("libSM.so.6")

POINTER = ctypes.c_void_p
REGISTER = ctypes.CFUNCTYPE(ctypes.c_int, POINTER, POINTER, POINTER)
SAVED = ctypes.CFUNCTYPE(None, POINTER, POINTER, ctypes.c_int)
CLOSED = ctypes.CFUNCTYPE(None, POINTER, POINTER, ctypes.c_int, POINTER)
OTHER = ctypes.CFUNCTYPE(None, POINTER, POINTER, POINTER, POINTER)
NEW_CLIENT = ctypes.CFUNCTYPE(ctypes.c_int, POINTER, POINTER, ctypes.POINTER(ctypes.c_ulong),
                              POINTER, POINTER)
ADMIT = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_char_p)
ALL_CALLBACKS = 0x3ff
SAVE_BOTH, SAVE_LOCAL, ASK_NOBODY, ASK_ANYTHING = 2, 1, 0, 2

for function in (ice.IceAcceptConnection, ice.IceComposeNetworkIdList):
    function.restype = POINTER
ice.IceComposeNetworkIdList.restype = ctypes.c_char_p


class SessionManager:
    def __init__(self):
        self.clients = []
        self.is_ending = False
        # In the order of the library's structure; they must live as long as it.
        self.callbacks = [REGISTER(self.register), OTHER(self.ignore), OTHER(self.ignore),
                          OTHER(self.ignore), OTHER(self.ignore), SAVED(self.saved),
                          CLOSED(self.closed), OTHER(self.ignore), OTHER(self.ignore),
                          OTHER(self.ignore)]
        self.new_client = NEW_CLIENT(self.greet)
        self.admit = ADMIT(lambda _host: 1)
        error = ctypes.create_string_buffer(256)
        sm.SmsInitialize(b"test", b"1", self.new_client, None, self.admit, len(error), error)
        count, listeners = ctypes.c_int(), ctypes.POINTER(POINTER)()
        if not ice.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners),
                                           len(error), error):
            raise OSError(error.value.decode())
        self.listeners = [POINTER(listeners[index]) for index in range(count.value)]
        for listener in self.listeners:
            ice.IceSetHostBasedAuthProc(listener, self.admit)
        print(ice.IceComposeNetworkIdList(count, listeners).decode(), flush=True)

    def greet(self, _client, _data, mask, callbacks, _failure):
        mask[0] = ALL_CALLBACKS
        places = ctypes.cast(callbacks, ctypes.POINTER(POINTER))
        for index, callback in enumerate(self.callbacks):
            places[2 * index] = ctypes.cast(callback, POINTER)
            places[2 * index + 1] = None
        return 1

    def register(self, client, _data, _previous):
        self.clients.append(client)
        sm.SmsRegisterClientReply(POINTER(client), b"1")
        sm.SmsSaveYourself(POINTER(client), SAVE_LOCAL, 0, ASK_NOBODY, 0)
        return 1

    def saved(self, client, _data, _success):
        if self.is_ending:
            sm.SmsDie(POINTER(client))
        else:
            sm.SmsSaveComplete(POINTER(client))
            print("registered", flush=True)

    def closed(self, client, *_reasons):
        self.clients.remove(client)
        print("gone", flush=True)
        os._exit(0)

    def ignore(self, *_arguments):
        pass

    def end_session(self):
        self.is_ending = True
        for client in self.clients:
            sm.SmsSaveYourself(POINTER(client), SAVE_BOTH, 1, ASK_ANYTHING, 0)

    def run(self):
        connections = {}
        while True:
            waiting = {ice.IceConnectionNumber(each): each for each in connections.values()}
            listening = {ice.IceGetListenConnectionNumber(each): each for each in self.listeners}
            ready, _, _ = select.select([0, *waiting, *listening], [], [])
            for descriptor in ready:
                if descriptor == 0:
                    if not sys.stdin.readline():
                        return
                    self.end_session()
                elif descriptor in listening:
                    status = ctypes.c_int()
                    connection = POINTER(ice.IceAcceptConnection(listening[descriptor],
                                                                 ctypes.byref(status)))
                    connections[descriptor, len(connections)] = connection
                else:
                    ice.IceProcessMessages(waiting[descriptor], None, None)


SessionManager().run()
