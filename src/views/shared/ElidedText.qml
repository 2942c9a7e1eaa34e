// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Text, by default of one line, that may be cut. The tooltip then shows all of it, to the
// pointer, and to the keyboard where the text or what holds it has the focus.
PlainText {
    id: root

    property string whole: text
    // Whether it is a stop of the Tab key while it is cut, for what holds no other one.
    property bool isStop: false
    readonly property string cutText: truncated || whole !== text ? whole : ""

    activeFocusOnTab: isStop && cutText !== ""
    maximumLineCount: 1

    HoverHandler {
        id: hover
    }

    HelpTip {
        text: root.cutText
        wanted: hover.hovered || root.activeFocus
    }

    FocusRing {
        innerRadius: Theme.smallRadius
        shown: root.activeFocus
    }
}
