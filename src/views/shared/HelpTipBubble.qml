// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A tooltip below its parent, inside the window.
T.ToolTip {
    id: root

    bottomMargin: 6
    bottomPadding: 5
    delay: 600
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.min(420, contentWidth + leftPadding + rightPadding)
    leftMargin: 6
    leftPadding: 9
    objectName: "tip"
    rightMargin: 6
    rightPadding: 9
    topMargin: 6
    topPadding: 5
    visible: true
    x: ((parent?.width ?? 0) - implicitWidth) / 2
    y: (parent?.height ?? 0) + 6

    background: Rectangle {
        border.color: Theme.primaryAt(0.15)
        color: Theme.card
        radius: Theme.smallRadius
    }
    contentItem: PlainText {
        maximumLineCount: 30
        size: 12
        text: root.text
        wrapMode: Text.Wrap
    }
}
