// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Lets the user choose between the video and the playlist of a mixed URL.
Rectangle {
    id: root

    readonly property URLInputPresenter input: Presenters.urlInput

    border.color: Theme.at(Theme.orange, 0.18)
    border.width: 1
    color: Theme.at(Theme.orange, 0.06)
    implicitHeight: chips.implicitHeight + 16
    radius: Theme.radius

    SymbolIcon {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.orange
        size: 12
        symbol: "list.bullet.rectangle.portrait"
    }

    PlainText {
        anchors.left: icon.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        size: 12
        text: "This URL contains a playlist."
    }

    Row {
        id: chips

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        ModeChip {
            isSelected: !root.input.fetchesPlaylist
            label: "Single Video"
            objectName: "singleVideo"
            symbol: "play.rectangle.fill"

            onClicked: root.input.choosePlaylist(false)
        }

        ModeChip {
            isSelected: root.input.fetchesPlaylist
            label: "Full Playlist"
            objectName: "fullPlaylist"
            symbol: "list.bullet"

            onClicked: root.input.choosePlaylist(true)
        }
    }
}
