# SPDX-License-Identifier: GPL-3.0-or-later
"""A small magenta window: what is dragged out of it is the text that is its argument."""

import sys

import gi

gi.require_version("Gtk", "3.0")

from gi.repository import Gdk, Gtk  # noqa: E402

MAGENTA = b"#source { background: #ff00ff; }"

window = Gtk.Window(title="Source", decorated=False, default_width=120, default_height=120)
source = Gtk.EventBox(name="source")
style = Gtk.CssProvider()
style.load_from_data(MAGENTA)
source.get_style_context().add_provider(style, Gtk.STYLE_PROVIDER_PRIORITY_APPLICATION)
source.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
source.drag_source_add_text_targets()
source.connect("drag-data-get", lambda _source, _context, data, _info, _time:
               data.set_text(sys.argv[1], -1))
window.add(source)
window.show_all()
Gtk.main()
