// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A small choice, used in pairs.
BaseButton {
    id: root

    property bool active: false
    property alias label: root.text
    property string symbol

    bottomPadding: 5
    leftPadding: 10
    rightPadding: 10
    topPadding: 5
    ringRadius: Theme.smallRadius + 2

    Accessible.checkable: true
    Accessible.checked: active
    Accessible.role: Accessible.RadioButton

    Accessible.onToggleAction: if (enabled)
        root.clicked()

    background: Rectangle {
        color: root.active ? Theme.accentFill : root.hovered ? Theme.primaryAt(0.06) : "transparent"
        radius: Theme.smallRadius + 2

        Behavior on color {
            ColorAnimation {
                duration: Theme.brief
                easing.type: Easing.InOutQuad
            }
        }
    }
    contentItem: IconLabel {
        color: root.active ? Theme.overAccent : Theme.secondary
        iconSize: 10
        semibold: root.active
        size: 11
        spacing: 5
        symbol: root.symbol
        text: root.label
    }
}
