// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A row of a LazyGrid. The focus is on the row as a whole and moves on to its buttons;
// they are tab stops only while the row is the current one.
FocusScope {
    id: root

    required property int index
    required property LazyGrid grid

    readonly property bool hasFocus: face.activeFocus
    readonly property bool isCurrent: GridView.isCurrentItem
    readonly property bool isHovered: hover.hovered

    property alias commands: menu.commands
    // Of what is cut the row shows the whole while it has the focus.
    property var texts: [] // ElidedText
    // What can be copied of it; empty if there is nothing.
    property string message

    signal menuAsked
    signal messageCopied
    signal activated
    signal removed

    function cutTexts(): string {
        let lines = "";
        for (const text of texts)
            lines += (lines !== "" && text.cutText !== "" ? "\n" : "") + text.cutText;
        return lines;
    }

    // Once, however long the key is held.
    function activateBy(event: KeyEvent) {
        if (!event.isAutoRepeat)
            activated();
    }

    // Back to the row as a whole for the next time.
    onActiveFocusChanged: {
        if (activeFocus)
            grid.adopt(index);
        else
            face.focus = true;
    }

    Accessible.focusable: true
    Accessible.focused: hasFocus
    Accessible.role: Accessible.ListItem

    Accessible.onPressAction: root.activated()

    HoverHandler {
        id: hover
    }

    ContextArea {
        id: menu

        onAsked: root.menuAsked()
    }

    Keys.onPressed: event => {
        menu.handleKey(event);
        tip.handleKey(event);
    }

    HelpTip {
        id: tip

        offersCopy: root.message !== ""
        text: root.cutTexts()
        wanted: root.hasFocus

        onCopied: root.messageCopied()
    }

    Item {
        id: face

        // So that going back from the row's buttons leads here. Late, since a focused
        // item cannot cease to be a tab stop.
        Binding on activeFocusOnTab {
            delayed: true
            value: root.isCurrent
        }

        anchors.fill: parent
        focus: true

        Keys.onDeletePressed: root.removed()
        Keys.onEnterPressed: event => root.activateBy(event)
        Keys.onReturnPressed: event => root.activateBy(event)
        Keys.onSpacePressed: event => root.activateBy(event)

        FocusRing {
            gap: -2
            shown: face.activeFocus
            z: 1
        }
    }
}
