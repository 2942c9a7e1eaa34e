// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A long list inside a page that scrolls as a whole: as high as all of its cells, but
// with live cells only where the page shows it, and one row around. One stop of the Tab
// key; the arrow keys move inside.
Item {
    id: root

    property alias delegate: view.delegate
    property alias model: view.model
    property alias currentIndex: view.currentIndex
    readonly property alias count: view.count
    readonly property alias view: view
    property bool isAdopting: false

    // Without bounds for the width there is one column.
    property real minimumCellWidth: width
    property real maximumCellWidth: Infinity
    property real cellHeight: 0
    property real spacing: 0

    readonly property int columns: Math.max(1, Math.floor((width + spacing) / (minimumCellWidth + spacing)))
    readonly property real cellWidth: Math.min(maximumCellWidth, (width - (columns - 1) * spacing) / columns)
    readonly property int rows: Math.ceil(count / columns)

    readonly property Flickable page: Pages.of(root)
    readonly property real offset: Pages.offset(root, page)
    readonly property real shownTop: page ? clamped(page.contentY - offset) : 0
    readonly property real shownBottom: page ? clamped(page.contentY + page.height - offset) : 0

    function clamped(y: real): real {
        return Math.max(0, Math.min(y, height));
    }

    // Makes the page follow the focus. Computed from the index, since a newly made cell
    // is not in its place yet.
    function revealCurrent() {
        if (!page)
            return;
        const margin = 8;
        const top = offset + Math.floor(currentIndex / columns) * (cellHeight + spacing);
        Pages.show(page, top - margin, top + cellHeight + margin);
    }

    // Where the focus enters, and after each of its moves.
    function focusCurrent() {
        if (!view.activeFocus || !view.currentItem || isAdopting)
            return;
        if (!view.currentItem.activeFocus)
            view.currentItem.forceActiveFocus(Qt.TabFocusReason);
        revealCurrent();
    }

    // Makes a clicked cell the current one, where it is.
    function adopt(index: int) {
        isAdopting = true;
        currentIndex = index;
        isAdopting = false;
    }

    implicitHeight: Math.max(0, rows * (cellHeight + spacing) - spacing)

    GridView {
        id: view

        activeFocusOnTab: true
        cacheBuffer: cellHeight
        cellHeight: Math.max(1, root.cellHeight + root.spacing)
        cellWidth: Math.max(1, root.cellWidth + root.spacing)
        contentY: originY + root.shownTop
        enabled: count > 0
        height: root.shownBottom - root.shownTop
        highlightFollowsCurrentItem: false
        interactive: false
        keyNavigationEnabled: true
        // A column fits only together with its spacing.
        width: root.columns * cellWidth + 1
        y: root.shownTop

        onActiveFocusChanged: if (root.Window.activeFocusItem === view)
            root.focusCurrent()
        onCountChanged: if (!activeFocus)
            currentIndex = 0
        onCurrentItemChanged: root.focusCurrent()

        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                currentIndex = 0;
            else if (event.key === Qt.Key_End)
                currentIndex = count - 1;
            else
                return;
            event.accepted = true;
        }
    }
}
