// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A symbol of the header that acts when pressed.
BaseButton {
    id: root

    property bool isActive: false
    property string symbol

    implicitHeight: 32
    implicitWidth: 32
    ringRadius: Theme.buttonRadius

    background: Rectangle {
        color: root.isActive ? Theme.at(Theme.accent, 0.12) : root.hovered ? Theme.primaryAt(0.06) : "transparent"
        radius: Theme.buttonRadius
    }
    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            color: root.isActive ? Theme.accent : root.hovered ? Theme.primary : Theme.secondary
            size: 15
            symbol: root.symbol
        }
    }
}
