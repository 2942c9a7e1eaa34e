// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Lets its content enter and leave with a fade, and enter by sliding from the top edge
// if wanted. While it leaves, its room goes to what follows, so that nothing jumps when it
// has left.
Item {
    id: root

    default property alias content: holder.data
    property real presence: shown ? 1 : 0
    property bool shown: false
    property bool slides: false

    // Of its room, what it takes now.
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
