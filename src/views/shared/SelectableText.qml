// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// Literal text that can be selected, over a few lines; the tooltip shows what does not fit.
T.TextArea {
    id: root

    property int maximumLineCount: 1
    readonly property bool isCut: contentHeight > height

    activeFocusOnTab: true
    clip: true
    color: Theme.primary
    font.family: model.fontInfo.family // without a style, it would be the desktop's
    font.pixelSize: 12
    height: Math.min(contentHeight, Math.ceil(metrics.lineSpacing * maximumLineCount))
    padding: 0
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
        gap: 2
        innerRadius: Theme.smallRadius
        shown: root.activeFocus && root.focusReason !== Qt.MouseFocusReason
    }
}
