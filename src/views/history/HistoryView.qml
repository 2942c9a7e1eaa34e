// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon
import Quillon.Shared

// The finished downloads, newest first.
Column {
    id: root

    bottomPadding: 16
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    spacing: 4
    topPadding: 8

    readonly property real innerWidth: width - leftPadding - rightPadding

    HistoryModel {
        id: history
    }

    Item {
        height: 28
        width: root.innerWidth

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            font.weight: Font.DemiBold
            objectName: "historyTitle"
            text: "Download History"
            x: 2

            Accessible.role: Accessible.Heading
        }

        TextButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            objectName: "clearHistory"
            text: "Clear all"

            onClicked: history.clearAll()
        }
    }

    PlainText {
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        objectName: "noHistory"
        padding: 20
        text: "No downloads yet"
        visible: history.isEmpty
        width: root.innerWidth
    }

    LazyGrid {
        id: rows

        cellHeight: 52
        model: history
        objectName: "historyList"
        view.objectName: "historyRows"
        visible: !history.isEmpty
        width: root.innerWidth

        delegate: HistoryItemRow {
            grid: rows
            height: rows.cellHeight
            objectName: "history" + index
            width: rows.cellWidth

            onRefetched: history.refetch(index)
            onRevealed: history.reveal(index)
        }
    }
}
