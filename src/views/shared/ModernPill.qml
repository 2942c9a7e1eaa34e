// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// One of several choices; the selected one is filled.
BaseChoice {
    id: root

    property bool isHovered: hovered
    property alias label: root.text

    bottomPadding: 5
    leftPadding: 12
    rightPadding: 12
    topPadding: 5

    background: Rectangle {
        border.color: root.isSelected ? "transparent" : Theme.outline
        border.width: 1
        color: Theme.primaryAt(root.isHovered ? 0.08 : 0.05)
        radius: Theme.radius

        Behavior on color {
            ColorAnimation {
                duration: Theme.quick
                easing.type: Easing.InOutQuad
            }
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.accentFill
            opacity: root.isSelected ? 1 : 0
            radius: parent.radius

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.pill
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }
    contentItem: IconLabel {
        color: root.isSelected ? Theme.overAccent : root.isHovered ? Theme.primary : Theme.secondary
        implicitHeight: 19
        semibold: root.isSelected
        text: root.label
    }
}
