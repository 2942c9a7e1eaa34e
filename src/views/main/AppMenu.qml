// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Basic
import Quillon.Shared

// A menu of the menu bar; its entries show their shortcuts.
Menu {
    id: root

    implicitWidth: 230
    padding: 5

    background: Rectangle {
        border.color: Theme.primaryAt(0.15)
        color: Theme.card
        radius: Theme.buttonRadius
    }
    delegate: MenuItem {
        id: item

        bottomPadding: 6
        leftPadding: 10
        rightPadding: 10
        topPadding: 6

        Accessible.description: enabled ? "" : "Unavailable"
        Accessible.name: text

        background: Rectangle {
            color: item.highlighted && item.enabled ? Theme.accentFill : "transparent"
            radius: Theme.smallRadius
        }
        contentItem: Item {
            readonly property color color: item.highlighted && item.enabled ? Theme.overAccent : Theme.primary

            implicitHeight: 18
            opacity: item.enabled ? 1 : 0.45

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                color: parent.color
                text: item.text

                Accessible.ignored: true
            }

            PlainText {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.at(parent.color, 0.75)
                text: item.action?.shortcut ?? ""

                Accessible.ignored: true
            }
        }
    }
}
