// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon
import Quillon.Shared

// The player, and below it what a search has found.
Column {
    id: root

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: 8

    readonly property real gap: 10

    readonly property real innerWidth: width - leftPadding - rightPadding
    // What the page, which has margins of its own, has left for what stands in the
    // place of results.
    readonly property real room: (rows.page?.height ?? 0) - 28 - topPadding - player.height
    readonly property bool showsResults: browse.area === BrowseModel.Area.Results

    Component.onDestruction: panel.stop()

    BrowseModel {
        id: browse
    }

    PlayerPanelModel {
        id: panel
    }

    Reveal {
        id: player

        shown: panel.isPresent
        width: root.innerWidth

        Item {
            height: playerPanel.height + root.gap
            width: root.innerWidth

            BrowsePlayerPanel {
                id: playerPanel

                objectName: "playerPanel"
                panel: panel
                width: root.innerWidth

                onDismissed: if (rows.count > 0)
                    rows.view.forceActiveFocus(Qt.TabFocusReason)
            }
        }
    }

    BrowsePlaceholder {
        height: Math.max(implicitHeight, root.room)
        loading: true
        title: "Searching…"
        visible: browse.area === BrowseModel.Area.Searching
        width: root.innerWidth
    }

    BrowsePlaceholder {
        height: Math.max(implicitHeight, root.room)
        subtitle: browse.errorText
        isAlert: true
        objectName: "searchFailed"
        symbol: "exclamationmark.triangle"
        title: "Search failed"
        visible: browse.area === BrowseModel.Area.Failed
        width: root.innerWidth
    }

    BrowsePlaceholder {
        height: Math.max(implicitHeight, root.room)
        objectName: "searchEmpty"
        subtitle: "Type a query above and press Search"
        symbol: "magnifyingglass"
        title: "Search YouTube"
        visible: browse.area === BrowseModel.Area.Empty
        width: root.innerWidth
    }

    PlainText {
        bottomPadding: root.gap
        color: Theme.secondary
        leftPadding: 4
        objectName: "resultCount"
        size: 12
        text: browse.countText
        visible: root.showsResults
    }

    LazyGrid {
        id: rows

        cellHeight: 70
        model: browse
        objectName: "resultList"
        spacing: 8
        view.objectName: "resultRows"
        visible: root.showsResults
        width: root.innerWidth

        delegate: BrowseResultRow {
            grid: rows
            height: rows.cellHeight
            objectName: "result" + index
            width: rows.cellWidth

            // What begins to play is seen, from however far down it was chosen.
            onActivated: {
                browse.play(index);
                if (panel.isPresent)
                    Pages.show(rows.page, 0, 0);
            }
            onDownloaded: isAudio => browse.download(index, isAudio)
        }
    }
}
