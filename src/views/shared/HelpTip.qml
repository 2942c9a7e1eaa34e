// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Explains the control around it once the pointer has rested there. Nothing is made of it
// before.
Loader {
    id: root

    property string text
    property bool wanted: false

    active: wanted && text !== ""
    anchors.fill: parent

    source: Qt.resolvedUrl("HelpTipBubble.qml") // found beside this file, wherever it is used

    Binding {
        property: "text"
        target: root.item
        value: root.text
    }
}
