# SPDX-License-Identifier: GPL-3.0-or-later
"""Stand-ins for the desktop's services on the test's own bus.

They write each call as a line of JSON to the file that is their first argument; further
ones are names that they leave to others. The desktop prefers light colours until SIGUSR1
comes, and dark ones from then on.
"""

import json
import signal
import sys

from gi.repository import Gio, GLib

INTERFACES = """
<node>
  <interface name="org.freedesktop.Notifications">
    <method name="GetCapabilities"><arg type="as" direction="out"/></method>
    <method name="Notify">
      <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
      <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
      <arg type="u" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.FileManager1">
    <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
    <method name="ShowFolders"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
  </interface>
  <interface name="org.freedesktop.ScreenSaver">
    <method name="Inhibit">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/>
    </method>
    <method name="UnInhibit"><arg type="u" direction="in"/></method>
  </interface>
  <interface name="org.freedesktop.portal.Settings">
    <method name="ReadAll">
      <arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/>
    </method>
  </interface>
</node>
"""

LIGHT, DARK = GLib.Variant("u", 2), GLib.Variant("u", 1)
APPEARANCE = "org.freedesktop.appearance"
ANSWERS = {"ReadAll": GLib.Variant("(a{sa{sv}})", ({APPEARANCE: {"color-scheme": LIGHT}},)),
           "GetCapabilities": GLib.Variant("(as)", (["body", "body-markup"],)),
           "Inhibit": GLib.Variant("(u)", (7,)),
           "Notify": GLib.Variant("(u)", (1,))}
NAMES = {"org.freedesktop.Notifications": "org.freedesktop.Notifications",
         "org.freedesktop.FileManager1": "org.freedesktop.FileManager1",
         "org.freedesktop.ScreenSaver": "org.freedesktop.ScreenSaver",
         "org.freedesktop.portal.Desktop": "org.freedesktop.portal.Settings"}
PATHS = {"org.freedesktop.Notifications": "/org/freedesktop/Notifications",
         "org.freedesktop.FileManager1": "/org/freedesktop/FileManager1",
         "org.freedesktop.ScreenSaver": "/org/freedesktop/ScreenSaver",
         "org.freedesktop.portal.Desktop": "/org/freedesktop/portal/desktop"}


def main() -> None:
    record = open(sys.argv[1], "a", buffering=1, encoding="utf-8")
    node = Gio.DBusNodeInfo.new_for_xml(INTERFACES)

    def answer(_connection, _sender, _path, _interface, method, arguments, invocation):
        record.write(json.dumps({"method": method, "arguments": arguments.unpack()}) + "\n")
        invocation.return_value(ANSWERS.get(method))

    def provide(connection, name):
        connection.register_object(PATHS[name], node.lookup_interface(NAMES[name]), answer)

    def turn_dark(bus):
        bus.emit_signal(None, PATHS["org.freedesktop.portal.Desktop"],
                        "org.freedesktop.portal.Settings", "SettingChanged",
                        GLib.Variant("(ssv)", (APPEARANCE, "color-scheme", DARK)))
        return GLib.SOURCE_CONTINUE

    for name in PATHS:
        if name in sys.argv[2:]:
            continue
        Gio.bus_own_name(Gio.BusType.SESSION, name, Gio.BusNameOwnerFlags.NONE, provide, None, None)
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, turn_dark,
                         Gio.bus_get_sync(Gio.BusType.SESSION))
    GLib.MainLoop().run()


main()
