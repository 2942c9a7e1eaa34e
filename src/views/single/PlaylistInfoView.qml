// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// A playlist: its title, how much of it is selected, and its entries to choose
// from.
Card {
    id: root

    readonly property PlaylistModel playlist: Presenters.playlist

    property videoInfo info
    property bool isCollapsed: false

    implicitHeight: content.height + 28

    Binding {
        property: "info"
        target: root.playlist
        value: root.info
    }

    onInfoChanged: isCollapsed = false

    Column {
        id: content

        width: root.width - 28
        x: 14
        y: 14

        Item {
            height: 40
            width: parent.width

            Rectangle {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                color: Theme.at(Theme.accent, 0.12)
                height: 36
                radius: 18
                width: 36

                SymbolIcon {
                    anchors.centerIn: parent
                    color: Theme.accent
                    size: 18
                    symbol: "list.bullet.rectangle.fill"
                }
            }

            Column {
                anchors.left: mark.right
                anchors.leftMargin: 12
                anchors.right: buttons.left
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                spacing: 3

                ElidedText {
                    font.weight: Font.DemiBold
                    isStop: true
                    objectName: "playlistTitle"
                    size: 14
                    text: root.playlist.heading
                    width: parent.width

                    Accessible.role: Accessible.Heading
                }

                PlainText {
                    color: Theme.secondary
                    objectName: "playlistCount"
                    size: 12
                    text: root.playlist.countLine + (root.playlist.unseenLine !== "" ? " · " + root.playlist.unseenLine : "")
                }
            }

            Row {
                id: buttons

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 6

                PlaylistSelectionButton {
                    label: "All"
                    objectName: "selectAll"
                    symbol: "checkmark.circle.fill"

                    onClicked: root.playlist.selectAll()
                }

                PlaylistSelectionButton {
                    label: "None"
                    objectName: "selectNone"
                    symbol: "circle"

                    onClicked: root.playlist.selectNone()
                }

                PlaylistSelectionButton {
                    help: root.isCollapsed ? "Show video list" : "Hide video list"
                    label: root.isCollapsed ? "Show" : "Hide"
                    objectName: "collapse"
                    symbol: root.isCollapsed ? "chevron.down" : "chevron.up"

                    onClicked: root.isCollapsed = !root.isCollapsed
                }
            }
        }

        PlaylistFilter {
            playlist: root.playlist
            visible: root.playlist.canFilter && !root.isCollapsed
            width: parent.width
        }

        Reveal {
            shown: !root.isCollapsed
            slides: true
            width: parent.width

            PlaylistGrid {
                model: root.playlist
                width: parent.width
            }
        }
    }
}
