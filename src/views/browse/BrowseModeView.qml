// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The player, and below it what a search has found.
ModePage {
    id: root

    readonly property BrowseModel browse: Presenters.browse
    readonly property PlayerPanelPresenter panel: Presenters.playerPanel

    readonly property real gap: 10

    // The height of the page that is left for what takes the place of results.
    readonly property real room: (rows.page?.height ?? 0) - (rows.page?.bottomMargin ?? 0) - 28 - topPadding - player.height
    readonly property bool showsResults: root.browse.area === BrowseModel.Area.Results

    Component.onDestruction: root.panel.stop()

    Reveal {
        id: player

        shown: root.panel.isPresent
        width: root.innerWidth

        Item {
            height: playerPanel.height + root.gap
            width: root.innerWidth

            BrowsePlayerPanel {
                id: playerPanel

                objectName: "playerPanel"
                pageHeight: rows.page?.height ?? Infinity
                panel: root.panel
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
        visible: root.browse.area === BrowseModel.Area.Searching
        width: root.innerWidth
    }

    BrowsePlaceholder {
        height: Math.max(implicitHeight, root.room)
        subtitle: root.browse.errorText
        isAlert: true
        objectName: "searchFailed"
        symbol: "exclamationmark.triangle"
        title: "Search failed"
        visible: root.browse.area === BrowseModel.Area.Failed
        width: root.innerWidth
    }

    BrowsePlaceholder {
        height: Math.max(implicitHeight, root.room)
        objectName: "searchEmpty"
        subtitle: "Type a query above and press Search"
        symbol: "magnifyingglass"
        title: "Search YouTube"
        visible: root.browse.area === BrowseModel.Area.Empty
        width: root.innerWidth
    }

    PlainText {
        bottomPadding: root.gap
        color: Theme.secondary
        objectName: "resultCount"
        size: 12
        text: root.browse.countText
        visible: root.showsResults
    }

    LazyGrid {
        id: rows

        cellHeight: 70
        model: root.browse
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

            // The video that begins to play comes into view, from however far down it was
            // chosen.
            onActivated: {
                root.browse.play(index);
                if (root.panel.isPresent)
                    Pages.show(rows.page, 0, 0);
            }
            onDownloaded: isAudio => root.browse.download(index, isAudio)
        }
    }
}
