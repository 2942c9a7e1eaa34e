// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// What this program is, in a few lines.
Column {
    id: root

    required property string version

    bottomPadding: 30
    spacing: 20
    topPadding: 30
    width: 300

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.at(Theme.markBottom, 0.06)
        height: 80
        radius: 20
        width: 80

        Rectangle {
            anchors.centerIn: parent
            color: Theme.overAccent
            height: 30
            radius: 15
            width: 30
        }

        SymbolIcon {
            anchors.centerIn: parent
            color: Theme.markBottom
            size: 40
            symbol: "arrow.down.circle.fill"
        }
    }

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        font.weight: Font.DemiBold
        size: 22
        text: "Quillon"

        Accessible.role: Accessible.Heading
    }

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.secondary
        text: root.version
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            text: "Built with Qt and care by "
        }

        BaseButton {
            id: link

            anchors.verticalCenter: parent.verticalCenter
            objectName: "aboutLink"
            ringRadius: 3
            text: "the Quillon authors"

            Accessible.role: Accessible.Link

            contentItem: PlainText {
                color: Theme.accent
                font.underline: link.hovered || link.visualFocus
                text: link.text

                Accessible.ignored: true
            }

            onClicked: Qt.openUrlExternally("https://quillon.example")
        }
    }
}
