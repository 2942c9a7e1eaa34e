// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Fades its content in and out, optionally sliding it in from the top. While the content
// leaves, its room goes to what follows, so that nothing jumps at the end.
Item {
    id: root

    default property alias content: holder.data
    property real presence: shown ? 1 : 0
    property bool shown: false
    property bool slides: false

    // The part of its room that it takes now.
    readonly property real share: slides || !shown ? presence : 1

    clip: share < 1
    enabled: shown
    implicitHeight: holder.height * share
    implicitWidth: (holder.childrenRect.x + holder.childrenRect.width) * share
    visible: presence > 0

    Behavior on presence {
        NumberAnimation {
            duration: Theme.calm
            easing.type: Easing.InOutQuad
        }
    }

    Item {
        id: holder

        height: childrenRect.height
        opacity: root.presence
        width: root.width
        y: root.slides ? root.height - height : 0
    }
}
