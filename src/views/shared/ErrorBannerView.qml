// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Says what went wrong.
Rectangle {
    id: root

    property string text

    property alias commands: menu.commands

    signal menuAsked
    signal copied

    color: Theme.at(Theme.redFill, 0.88)
    implicitHeight: label.implicitHeight + 22
    radius: Theme.radius

    Accessible.name: text
    Accessible.role: Accessible.AlertMessage

    activeFocusOnTab: true

    Accessible.focusable: true

    Keys.onPressed: event => {
        menu.handleKey(event);
        tip.handleKey(event);
    }

    HelpTip {
        id: tip

        offersCopy: true
        text: label.truncated ? root.text : ""
        wanted: root.activeFocus || (hover.hovered && label.truncated)

        onCopied: root.copied()
    }

    HoverHandler {
        id: hover
    }

    ContextArea {
        id: menu

        onAsked: root.menuAsked()
    }

    FocusRing {
        shown: root.activeFocus
    }

    SymbolIcon {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.overAccent
        size: 13
        symbol: "exclamationmark.triangle.fill"
    }

    PlainText {
        id: label

        anchors.left: icon.right
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.overAccent
        elide: Text.ElideRight
        maximumLineCount: 8 // the tool may print a whole traceback
        text: root.text
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
}
