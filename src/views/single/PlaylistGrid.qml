// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The entries of a playlist in columns, under a line.
Item {
    id: root

    required property PlaylistModel model

    implicitHeight: grid.y + grid.height

    Divider {
        width: parent.width
        y: 12
    }

    LazyGrid {
        id: grid

        // Two lines of title under the picture.
        cellHeight: Math.round((cellWidth - 16) * 9 / 16 + 16 + 6 + 28)
        maximumCellWidth: 240
        minimumCellWidth: 190
        model: root.model
        objectName: "playlistGrid"
        spacing: 10
        view.objectName: "playlistCards"
        width: parent.width
        y: 24

        Keys.onPressed: event => {
            if (event.matches(StandardKey.SelectAll)) {
                root.model.selectAll();
                event.accepted = true;
            }
        }

        onCurrentIndexChanged: if (view.activeFocus && !isAdopting)
            root.model.moveTo(currentIndex)

        delegate: PlaylistItemCard {
            required property int index

            height: grid.cellHeight
            objectName: "card" + index
            width: grid.cellWidth

            onActiveFocusChanged: if (activeFocus)
                grid.adopt(index)
            onClicked: root.model.press(index)
        }
    }
}
