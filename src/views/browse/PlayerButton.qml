// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A control that lies over the picture.
BaseButton {
    id: root

    property string symbol

    focusPolicy: Qt.TabFocus // a click leaves the keyboard with the picture
    implicitHeight: 32
    implicitWidth: 32
    ringRadius: 6

    background: Rectangle {
        color: Theme.at(Theme.overAccent, root.down ? 0.3 : root.hovered ? 0.18 : 0)
        radius: 6
    }
    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            color: Theme.overAccent
            size: 18
            symbol: root.symbol
        }
    }
}
