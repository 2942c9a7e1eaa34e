// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// How every menu looks.
T.Menu {
    id: root

    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: 230
    margins: 4 // near an edge of the window it moves inwards
    overlap: 1
    padding: 5

    background: Rectangle {
        border.color: Theme.outline
        color: Theme.card
        radius: Theme.buttonRadius
    }
    contentItem: ListView {
        currentIndex: root.currentIndex
        implicitHeight: contentHeight
        interactive: false
        model: root.contentModel
    }
    delegate: T.MenuItem {
        id: item

        bottomPadding: 6
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        leftPadding: 10
        objectName: "menuCommand"
        rightPadding: 10
        topPadding: 6

        Accessible.description: enabled ? "" : "Unavailable"
        Accessible.name: text

        Accessible.onPressAction: if (enabled) {
            item.action.trigger();
            item.menu.dismiss();
        }

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
                text: (item.action as AppCommand)?.keys ?? ""

                Accessible.ignored: true
            }
        }
    }
}
