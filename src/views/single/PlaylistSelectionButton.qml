// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A quiet button in the header of a playlist.
BaseButton {
    id: root

    property string label
    property string symbol

    bottomPadding: 6
    leftPadding: 8
    rightPadding: 8
    text: label
    topPadding: 6
    ringRadius: Theme.buttonRadius

    background: Rectangle {
        color: root.down ? Theme.primaryAt(0.12) : root.hovered ? Theme.primaryAt(0.06) : "transparent"
        radius: Theme.buttonRadius
    }
    contentItem: IconLabel {
        color: root.hovered ? Theme.primary : Theme.secondary
        iconSize: 11
        size: 12
        symbol: root.symbol
        text: root.label
    }
}
