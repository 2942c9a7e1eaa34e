// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// What lies over the lower edge of the page.
Card {
    property Item entry // where the focus enters

    signal choiceRequested // of format and quality
    signal acted
    signal led // to what it stands for

    Accessible.role: Accessible.ToolBar

    border.color: Theme.outline

    function focusFirst(withRing: bool) {
        entry.forceActiveFocus(withRing ? Qt.TabFocusReason : Qt.OtherFocusReason);
    }

    // Keeps the pointer from what lies below.
    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true

        onWheel: wheel => wheel.accepted = false
    }
}
