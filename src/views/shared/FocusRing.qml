// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Shows where the focus is. Surrounds its parent.
Rectangle {
    property bool shown: false
    property int gap: 2
    property int innerRadius: Theme.radius

    anchors.fill: parent
    anchors.margins: -gap - Theme.focusWidth
    border.color: Theme.accent
    border.width: Theme.focusWidth
    color: "transparent"
    objectName: "focusRing"
    radius: innerRadius + gap + Theme.focusWidth
    visible: shown
}
