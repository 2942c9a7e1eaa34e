// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// How far something is.
Rectangle {
    id: root

    property real progress: 0 // from 0 to 1

    color: Theme.hairline
    implicitHeight: 4
    radius: height / 2

    Rectangle {
        color: Theme.accent
        height: parent.height
        radius: parent.radius
        width: parent.width * Math.max(0, Math.min(1, root.progress))
    }
}
