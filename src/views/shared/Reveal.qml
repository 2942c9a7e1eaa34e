// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Lets its content enter and leave with a fade, and by sliding from the top edge
// if wanted. The content is there while it is seen, no longer.
Item {
    id: root

    property alias content: loader.sourceComponent
    property bool shown: false
    property bool slides: false
    property real presence: shown ? 1 : 0

    clip: presence < 1
    implicitHeight: (loader.item as Item)?.implicitHeight * (slides ? presence : 1) || 0
    visible: presence > 0

    Behavior on presence {
        NumberAnimation {
            duration: Theme.calm
            easing.type: Easing.InOutQuad
        }
    }

    Loader {
        id: loader

        active: root.presence > 0 || root.shown
        opacity: root.presence
        width: root.width
        y: root.slides ? root.height - height : 0
    }
}
