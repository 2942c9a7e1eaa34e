// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quillon.Presentation
import Quillon.Shared

// The one place for notices, over the lower edge of the page. It moves nothing there and
// takes no focus by itself: the keyboard enters by Tab or F6 and leaves by Escape.
FocusScope {
    id: root

    required property NoticePresenter notices // null where there are none
    required property Item home // where the focus goes when it has nowhere else to go
    readonly property bool isShown: notices?.isShown ?? false
    property Item elsewhere // where the focus was before it came here

    height: card.height
    visible: isShown

    function focusCard(withRing: bool) {
        (card.item as NoticeCard).focusFirst(withRing);
    }

    function enterOrLeave() {
        if (activeFocus)
            leave();
        else
            focusCard(true);
    }

    function leave() {
        const place = elsewhere?.enabled && elsewhere?.visible ? elsewhere : home;
        place.forceActiveFocus(Qt.TabFocusReason);
    }

    function holds(item: Item): bool {
        let each = item;
        while (each && each !== root)
            each = each.parent;
        return each === root;
    }

    Keys.onEscapePressed: leave()
    onIsShownChanged: if (!isShown && focus)
        leave()

    Loader {
        id: card

        active: root.isShown
        width: parent.width

        Component.onCompleted: setSource("NoticeCard.qml", {
            "notices": root.notices
        })
    }

    // Announced by screen readers, once for each notice: a new text makes a new item.
    Repeater {
        model: root.isShown ? [root.notices.title] : []

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
            if (button && root.activeFocus && root.isShown)
                root.focusCard(button.visualFocus);
        }

        target: root.notices
    }

    Connections {
        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem as Item;
            if (item && !root.holds(item))
                root.elsewhere = item;
        }

        target: root.Window.window
    }
}
