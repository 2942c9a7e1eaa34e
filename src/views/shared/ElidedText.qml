// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// One line of text. If it does not fit, or has more lines, the tooltip shows all of it.
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
