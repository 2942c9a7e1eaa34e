// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// One line of text. What does not fit on it, or has more lines, is in the tooltip.
PlainText {
    id: root

    property string whole: text

    maximumLineCount: 1

    HoverHandler {
        id: hover
    }

    HelpTip {
        text: root.truncated || root.whole !== root.text ? root.whole : ""
        wanted: hover.hovered
    }
}
