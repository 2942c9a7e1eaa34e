// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// Literal text that can be selected, over a few lines; the tooltip shows what does not fit.
T.TextArea {
    id: root

    property int maximumLineCount: 1
    readonly property bool isCut: contentHeight > height - 2 * padding

    activeFocusOnTab: true
    clip: true
    color: Theme.primary
    font.family: model.fontInfo.family // without a style, it would be the desktop's
    font.pixelSize: 12
    height: Math.min(contentHeight, Math.ceil(metrics.lineSpacing * maximumLineCount)) + 2 * padding
    padding: 4 // for the focus ring, which is cut off outside
    hoverEnabled: true
    readOnly: true
    selectByMouse: true
    selectedTextColor: Theme.overAccent
    selectionColor: Theme.accentFill
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap

    Accessible.name: text

    FontMetrics {
        id: metrics

        font: root.font
    }

    PlainText {
        id: model

        Accessible.ignored: true
    }

    HelpTip {
        text: root.isCut ? root.text : ""
        wanted: root.hovered || root.activeFocus
    }

    FocusRing {
        gap: -Theme.focusWidth
        innerRadius: Theme.smallRadius
        shown: root.activeFocus && root.focusReason !== Qt.MouseFocusReason
    }
}
