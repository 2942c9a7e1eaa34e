// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Plays the previous or the next result.
BaseButton {
    id: root

    property string symbol

    implicitHeight: 28
    implicitWidth: 28
    opacity: enabled ? 1 : 0.35
    ringRadius: 6

    background: Rectangle {
        color: Theme.primaryAt(root.down ? 0.14 : root.hovered && root.enabled ? 0.08 : 0)
        radius: 6
    }
    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            size: 16
            symbol: root.symbol
        }
    }
}
