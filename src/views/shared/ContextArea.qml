// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// Opens a menu of what can be done with the item that it covers: by right click, and by
// the menu key or Shift+F10, which the item hands on.
Item {
    id: root

    // Set in answer to asked(), so that they fit the moment.
    property var commands: []

    signal asked

    function handleKey(event: KeyEvent) {
        const isMenuKey = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier);
        if (!isMenuKey)
            return;
        event.accepted = true;
        open(12, height);
        if (menu.item)
            (menu.item as T.Menu).currentIndex = 0;
    }

    function open(x: real, y: real) {
        asked();
        if (commands.length === 0)
            return;
        // Found beside this file, wherever it is used.
        menu.setSource(Qt.resolvedUrl("ContextMenu.qml"), {
            "commands": commands
        });
        (menu.item as T.Menu).popup(root, x, y);
    }

    anchors.fill: parent

    TapHandler {
        acceptedButtons: Qt.RightButton

        onTapped: point => root.open(point.position.x, point.position.y)
    }

    Loader {
        id: menu
    }
}
