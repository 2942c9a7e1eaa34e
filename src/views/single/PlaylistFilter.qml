// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Shows only the entries whose title contains a text.
Item {
    id: root

    required property PlaylistModel playlist

    implicitHeight: 44

    InputField {
        id: field

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: only.visible ? only.left : parent.right
        anchors.rightMargin: only.visible ? 8 : 0
        height: 32
        objectName: "playlistFilter"
        placeholderText: "Filter by title"
        text: root.playlist.filter

        Accessible.name: placeholderText

        onTextEdited: {
            Pages.reveal(field); // it may have the keyboard from afar
            root.playlist.filter = text;
        }

        Keys.onEscapePressed: event => {
            event.accepted = root.playlist.filter !== "";
            root.playlist.filter = "";
        }
    }

    PushButton {
        id: only

        anchors.right: parent.right
        anchors.verticalCenter: field.verticalCenter
        height: field.height
        help: "Select what is shown and nothing else"
        objectName: "selectShown"
        text: "Only these"
        visible: root.playlist.isFiltered

        onClicked: root.playlist.selectShown()
    }
}
