// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Presentation
import Quillon.Shared

// Header, settings, input bar, and below them the page of the current mode: one
// scroll surface.
FocusScope {
    id: root

    readonly property ModePresenter mode: Presenters.mode
    readonly property bool isFetching: Presenters.singleMode.isFetching

    // A new request shows its result at the top.
    onIsFetchingChanged: if (isFetching)
        page.contentY = 0

    required property Appearance appearance
    required property NoticePresenter notices
    required property ToolPresenter tool

    Column {
        id: bars

        width: parent.width

        HeaderView {
            id: header

            appearance: root.appearance
            width: parent.width
        }

        Loader {
            id: settings

            active: Presenters.settings.isShown
            visible: active // otherwise it would keep its room
            width: parent.width

            source: "SettingsPanelView.qml"

            Keys.onEscapePressed: header.leaveSettings()

            function focusSetting(name: string) {
                item?.[name]?.forceActiveFocus(Qt.TabFocusReason);
            }

            Binding {
                property: "tool"
                target: settings.item
                value: root.tool
            }
        }

        URLInputView {
            id: input

            focus: true
            mode: root.mode
            width: parent.width
        }

        Divider {
            width: parent.width
        }
    }

    Flickable {
        id: page

        // Scrolls by this many heights of the visible part.
        function turn(heights: real) {
            const last = Math.max(0, contentHeight + bottomMargin - height);
            contentY = Math.max(0, Math.min(contentY + heights * height, last));
        }

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: bars.bottom
        // Lets the end of the page scroll clear of what lies over it.
        bottomMargin: slot.isShown ? slot.height + slot.anchors.bottomMargin : 0
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: content.height
        contentWidth: width
        objectName: "page"

        T.ScrollBar.vertical: T.ScrollBar {
            id: scrollBar

            implicitWidth: implicitContentWidth + leftPadding + rightPadding
            minimumSize: Math.min(1, 36 / page.height) // large enough to grab
            padding: 2

            contentItem: Rectangle {
                color: Theme.primaryAt(scrollBar.pressed ? 0.5 : scrollBar.hovered ? 0.4 : 0.3)
                implicitWidth: 7
                objectName: "scrollHandle"
                opacity: scrollBar.size >= 1 ? 0 : scrollBar.active ? 1 : 0.5
                radius: width / 2

                Behavior on opacity {
                    NumberAnimation {
                        duration: Theme.calm
                    }
                }
            }
        }

        Column {
            id: content

            topPadding: 4
            width: page.width

            Loader {
                id: screen

                width: content.width

                // A focus that leaves with its screen has nowhere else to go.
                onSourceChanged: if (activeFocus)
                    input.forceActiveFocus(Qt.OtherFocusReason)

                source: root.mode.isSingle ? "SingleModeView.qml" : root.mode.isMulti ? "MultiModeView.qml" : "BrowseModeView.qml"
            }

            Item {
                height: 24
                width: 1
            }

            Loader {
                active: !root.mode.isBrowse
                visible: active
                width: content.width

                sourceComponent: HistoryView {}
            }
        }

        // Brings the focused item into view; lists do this themselves.
        Connections {
            function onActiveFocusItemChanged() {
                const item = root.Window.activeFocusItem as Item;
                if (!item || Pages.of(item) !== page)
                    return;
                if ((item as T.Control)?.focusReason !== Qt.MouseFocusReason)
                    Pages.reveal(item);
            }

            target: root.Window.window
        }
    }

    // Tells where the screen's action row is.
    Binding {
        delayed: true // what follows may scroll the page
        property: "sight"
        target: Presenters.actionBar
        value: {
            const row = slot.page?.actions;
            if (!row)
                return ActionBarPresenter.Sight.None;
            const top = Pages.offset(row, page) - page.contentY;
            return top + row.height > page.height ? ActionBarPresenter.Sight.Below : top < 0 ? ActionBarPresenter.Sight.Above : ActionBarPresenter.Sight.Shown;
        }
    }

    LowerSlot {
        id: slot

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 14
        anchors.horizontalCenter: parent.horizontalCenter
        home: input
        notices: root.notices
        page: screen.item ? screen.item as ModePage : null
        width: Math.min(parent.width - 2 * Theme.margin, 760)

        onSettingRequested: name => settings.focusSetting(name)
    }

    WindowKeys {
        onFieldRequested: input.focusField()
    }

    Shortcut {
        enabled: slot.isShown
        sequence: "F6"

        onActivated: slot.enterOrLeave()
    }

    DropArea {
        anchors.fill: parent

        onDropped: drop => {
            const isText = drop.formats.includes("text/plain");
            input.handleDrop(isText ? drop.text : drop.getDataAsString("text/uri-list"));
            drop.accept(Qt.CopyAction);
        }
    }

    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp)
            return;
        page.turn(event.key === Qt.Key_PageDown ? 0.9 : -0.9);
        event.accepted = true;
    }
}
