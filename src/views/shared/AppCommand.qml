// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

// A command of the menu bar, whose keys work in every window of the program.
T.Action {
    id: root

    property string keys

    readonly property Shortcut keyboard: Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequence: root.keys

        onActivated: root.trigger()
    }
}
