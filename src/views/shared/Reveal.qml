// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Lets its content enter and leave with a fade, and by sliding from the top edge
// if wanted.
Item {
    id: root

    default property alias content: holder.data
    property real presence: shown ? 1 : 0
    property bool shown: false
    property bool slides: false

    clip: slides && presence < 1
    enabled: shown
    implicitHeight: holder.height * (slides ? presence : 1)
    implicitWidth: holder.childrenRect.width
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
