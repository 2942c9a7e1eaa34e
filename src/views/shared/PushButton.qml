// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// The bordered button, and the prominent one for a screen's main action.
BaseButton {
    id: root

    property bool busy: false
    property int iconSize: 13
    property bool prominent: false
    property string symbol
    property color tint: Theme.primary

    bottomPadding: 8
    leftPadding: 14
    rightPadding: 14
    topPadding: 8

    background: Rectangle {
        border.color: root.prominent ? "transparent" : Theme.outline
        border.width: root.prominent ? 0 : 1
        color: !root.enabled ? Theme.primaryAt(0.06) : root.prominent ? Theme.accentFill : Theme.card
        radius: Theme.buttonRadius

        Rectangle {
            anchors.fill: parent
            color: root.prominent ? Theme.badge : Theme.primaryAt(1)
            opacity: root.down ? 0.12 : root.hovered ? 0.06 : 0
            radius: parent.radius
            visible: root.enabled
        }
    }
    contentItem: IconLabel {
        busy: root.busy
        // Legible also when it is disabled: its text may be the status.
        color: !root.enabled ? Theme.secondary : root.prominent ? Theme.overAccent : root.tint
        iconSize: root.iconSize
        semibold: root.prominent
        spacing: 8
        symbol: root.symbol
        text: root.text
    }

    ringRadius: Theme.buttonRadius
}
