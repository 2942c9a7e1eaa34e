// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A menu of commands, each an object with a text, a function to run, and perhaps a flag
// that disables it.
MenuSurface {
    id: root

    property var commands: []

    objectName: "contextMenu"

    Instantiator {
        model: root.commands

        T.Action {
            required property var modelData

            enabled: modelData.enabled ?? true
            text: modelData.text

            onTriggered: modelData.run()
        }

        onObjectAdded: (index, object) => root.insertAction(index, object as T.Action)
        onObjectRemoved: (index, object) => root.removeAction(object as T.Action)
    }
}
