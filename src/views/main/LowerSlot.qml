// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quillon.Presentation
import Quillon.Shared

// The one place over the lower edge of the page: for a notice, else for what stands for an
// action row that is out of sight. It moves nothing on the page and takes no focus by
// itself: the keyboard enters by Tab or F6 and leaves by Escape.
FocusScope {
    id: root

    required property NoticePresenter notices // null where there are none
    required property ModePage page
    required property Item home // where the focus goes when it has nowhere else to go
    readonly property ActionBarPresenter actionBar: Presenters.actionBar
    readonly property bool hasNotice: notices?.isShown ?? false
    readonly property bool hasBar: !hasNotice && actionBar.kind !== ActionBarPresenter.Kind.None
    readonly property bool isShown: hasNotice || hasBar
    signal settingRequested(name: string)

    property Item elsewhere // where the focus was before it came here
    property bool cameByKey: true // the focus that is here

    height: hasNotice ? notice.height : bar.height

    function focusCard(withRing: bool) {
        ((hasNotice ? notice : bar).item as SlotCard).focusFirst(withRing);
    }

    function enterOrLeave() {
        if (activeFocus)
            leave();
        else
            focusCard(true);
    }

    function leave() {
        const place = elsewhere?.enabled && elsewhere?.visible ? elsewhere : home;
        place.forceActiveFocus(cameByKey ? Qt.TabFocusReason : Qt.MouseFocusReason);
    }

    // To the row itself if that has come into sight.
    function leaveBar() {
        if (actionBar.sight === ActionBarPresenter.Sight.Shown && page?.entry)
            page.entry.forceActiveFocus(Qt.TabFocusReason);
        else
            leave();
    }

    function holds(item: Item): bool {
        let each = item;
        while (each && each !== root)
            each = each.parent;
        return each === root;
    }

    function act() {
        const setting = notices.setting;
        notices.act();
        if (setting !== "")
            settingRequested(setting);
    }

    function chooseFormat() {
        const hadFocus = activeFocus;
        Pages.reveal(page.choice);
        if (hadFocus)
            page.choice.forceActiveFocus(Qt.TabFocusReason);
    }

    function showDownload() {
        const hadFocus = activeFocus;
        actionBar.lead();
        if (page?.actions)
            Pages.reveal(page.actions);
        if (hadFocus)
            leaveBar();
    }

    Keys.onEscapePressed: leave()
    onHasBarChanged: if (!hasBar && focus && !hasNotice)
        leaveBar()
    onHasNoticeChanged: if (focus)
        leave()

    Loader {
        id: notice

        active: root.hasNotice
        width: parent.width

        Component.onCompleted: setSource("NoticeCard.qml", {
            "notices": root.notices
        })
    }

    Loader {
        id: bar

        property real presence: root.hasBar ? 1 : 0
        Behavior on presence {
            NumberAnimation {
                duration: Theme.calm
            }
        }

        active: presence > 0
        enabled: root.hasBar
        opacity: presence
        visible: !root.hasNotice
        width: parent.width

        // What is shown stays until it has left.
        Binding on source {
            restoreMode: Binding.RestoreNone
            value: root.actionBar.kind === ActionBarPresenter.Kind.Queue ? "QueueBar.qml" : "DownloadBar.qml"
            when: root.hasBar
        }
    }

    // With Qt 6.8 a cast to a type that has not been loaded is undefined, so nothing is cast
    // before it is there.
    Connections {
        function onActed() {
            root.act();
        }

        target: notice.item ? notice.item as SlotCard : null
    }

    Connections {
        function onChoiceRequested() {
            root.chooseFormat();
        }

        function onLed() {
            root.showDownload();
        }

        target: bar.item ? bar.item as SlotCard : null
    }

    // Announced by screen readers, once for each notice: a new text makes a new item.
    Repeater {
        model: root.hasNotice ? [root.notices.title] : []

        Item {
            anchors.fill: parent

            Accessible.name: root.notices.title
            Accessible.role: Accessible.AlertMessage
        }
    }

    // A focus that is here moves to what the next notice offers, with its ring if it came
    // by a key.
    Connections {
        function onKindChanged() {
            const button = root.Window.activeFocusItem as T.Control;
            if (button && root.activeFocus && root.hasNotice)
                root.focusCard(button.visualFocus);
        }

        target: root.notices
    }

    Connections {
        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem as Item;
            if (item && !root.holds(item))
                root.elsewhere = item;
            else if (item)
                root.cameByKey = (item as T.Control)?.visualFocus ?? true;
        }

        target: root.Window.window
    }
}
