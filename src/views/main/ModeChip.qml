// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A small choice, used in pairs.
BaseChoice {
    id: root

    property alias label: root.text
    property string symbol

    bottomPadding: 5
    leftPadding: 10
    rightPadding: 10
    topPadding: 5
    ringRadius: Theme.smallRadius + 2

    background: Rectangle {
        color: root.isSelected ? Theme.accentFill : root.hovered ? Theme.primaryAt(0.06) : "transparent"
        radius: Theme.smallRadius + 2

        Behavior on color {
            ColorAnimation {
                duration: Theme.brief
                easing.type: Easing.InOutQuad
            }
        }
    }
    contentItem: IconLabel {
        color: root.isSelected ? Theme.overAccent : Theme.secondary
        iconSize: 10
        semibold: root.isSelected
        size: 11
        spacing: 5
        symbol: root.symbol
        text: root.label
    }
}
