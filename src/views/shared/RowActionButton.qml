// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// An action of a row: a symbol that brightens under the pointer.
BaseButton {
    id: root

    property string symbol
    property bool isTabStop: true

    // Late, since a focused item cannot cease to be a tab stop.
    Binding on activeFocusOnTab {
        delayed: true
        value: root.isTabStop
    }

    implicitHeight: 28
    implicitWidth: 28
    ringRadius: 6

    background: Rectangle {
        color: root.down ? Theme.primaryAt(0.14) : root.hovered ? Theme.primaryAt(0.08) : "transparent"
        radius: 6
    }
    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            color: root.hovered ? Theme.primary : Theme.secondary
            size: 14
            symbol: root.symbol
        }
    }
}
