// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// A playlist: its title and how much of it is selected. Its entries cannot be
// chosen one by one yet.
Card {
    id: root

    required property videoInfo info
    required property string selectionCount

    implicitHeight: facts.height + 28

    Rectangle {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        color: Theme.at(Theme.accent, 0.12)
        height: 36
        radius: 18
        width: 36
        x: 14

        SymbolIcon {
            anchors.centerIn: parent
            color: Theme.accent
            size: 18
            symbol: "list.bullet.rectangle.fill"
        }
    }

    Column {
        id: facts

        anchors.left: mark.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 3

        PlainText {
            font.weight: Font.DemiBold
            objectName: "playlistTitle"
            size: 14
            text: root.info.title
            width: parent.width

            Accessible.role: Accessible.Heading
        }

        PlainText {
            color: Theme.secondary
            size: 12
            text: root.selectionCount
        }
    }
}
