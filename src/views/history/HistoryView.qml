// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The finished downloads, newest first.
Column {
    id: root

    readonly property HistoryModel history: Presenters.history

    bottomPadding: 16
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    spacing: 4
    topPadding: 8

    readonly property real innerWidth: width - leftPadding - rightPadding

    Item {
        height: 28
        width: root.innerWidth

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            font.weight: Font.DemiBold
            objectName: "historyTitle"
            text: "Download History"

            Accessible.role: Accessible.Heading
        }

        TextButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            objectName: "clearHistory"
            text: "Clear all"

            onClicked: root.history.clearAll()
        }
    }

    PlainText {
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        objectName: "noHistory"
        padding: 20
        text: "No downloads yet"
        visible: root.history.isEmpty
        width: root.innerWidth
    }

    LazyGrid {
        id: rows

        cellHeight: 52
        model: root.history
        objectName: "historyList"
        view.objectName: "historyRows"
        visible: !root.history.isEmpty
        width: root.innerWidth

        delegate: HistoryItemRow {
            grid: rows
            height: rows.cellHeight
            objectName: "history" + index
            width: rows.cellWidth

            onRemoved: root.history.remove(index)
            onRefetched: root.history.refetch(index)
            onRevealed: root.history.reveal(index)
        }
    }
}
