// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Explains the control around it once the pointer or the keyboard has rested there, or
// offers to copy the message that it shows. Nothing is made of it before.
Loader {
    id: root

    property string text
    property bool wanted: false
    property bool offersCopy: false

    signal copied

    // What offers a copy hands its keys here.
    function handleKey(event: KeyEvent) {
        if (!offersCopy || event.key !== Qt.Key_C || event.modifiers !== Qt.ControlModifier)
            return;
        event.accepted = true;
        copied();
    }

    active: wanted && (text !== "" || offersCopy)
    anchors.fill: parent

    source: Qt.resolvedUrl("HelpTipBubble.qml") // found beside this file, wherever it is used
}
