// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Basic
import Quillon
import Quillon.Shared

// Header, settings, input bar, and below them the page of the current mode: one
// scroll surface.
FocusScope {
    id: root

    required property Appearance appearance

    ModeModel {
        id: mode
    }

    Column {
        id: bars

        width: parent.width

        HeaderView {
            appearance: root.appearance
            width: parent.width
        }

        Loader {
            active: AppState.showSettings
            width: parent.width

            source: "SettingsPanelView.qml"
        }

        URLInputView {
            focus: true
            modeModel: mode
            width: parent.width
        }

        Divider {
            width: parent.width
        }
    }

    Flickable {
        id: page

        // Brings what the keyboard has reached into view.
        function reveal(item: Item) {
            const top = item.mapToItem(contentItem, 0, 0).y;
            const margin = Theme.margin;
            if (top - margin < contentY)
                contentY = Math.max(0, top - margin);
            else if (top + item.height + margin > contentY + height)
                contentY = Math.min(contentHeight - height, top + item.height + margin - height);
        }

        function holds(item: Item): bool {
            for (let each = item; each; each = each.parent) {
                if (each === contentItem)
                    return true;
            }
            return false;
        }

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: bars.bottom
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: screen.height + 28
        contentWidth: width

        ScrollBar.vertical: ScrollBar {}

        Loader {
            id: screen

            width: page.width
            y: 4

            source: mode.isSingle ? "SingleModeView.qml" : mode.isMulti ? "MultiModeView.qml" : "BrowseModeView.qml"
        }

        Connections {
            function onActiveFocusItemChanged() {
                const item = root.Window.activeFocusItem as Item;
                if (item && page.holds(item))
                    page.reveal(item);
            }

            target: root.Window.window
        }
    }
}
