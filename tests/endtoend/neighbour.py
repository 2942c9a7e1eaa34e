#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window of another program. A text can be dragged out of it, and a click starts a
command: the arguments. It writes a line at each step of a drag."""

import shlex
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")

from gi.repository import Gdk, Gio, Gtk  # noqa: E402

text, command = sys.argv[1], sys.argv[2:]


def say(step: str):
    print(step, flush=True)


def begin(_source, context):
    say("begun")
    context.connect("action-changed", lambda _context, action: action and say("wanted"))


def start(source, event):
    program = Gio.AppInfo.create_from_commandline(shlex.join(command), None,
                                                  Gio.AppInfoCreateFlags.SUPPORTS_STARTUP_NOTIFICATION)
    context = source.get_display().get_app_launch_context()
    context.set_timestamp(event.time)
    program.launch([], context)


window = Gtk.Window(title="Neighbour", default_width=120, default_height=120)
source = Gtk.EventBox()
source.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
source.drag_source_add_text_targets()
source.connect("drag-data-get", lambda _source, _context, data, _info, _time: data.set_text(text, -1))
source.connect("enter-notify-event", lambda _source, _event: say("entered"))
source.connect("button-press-event", lambda _source, _event: say("pressed"))
source.connect("drag-begin", begin)
source.connect("button-release-event", start)
window.add(source)
window.show_all()
Gtk.main()
