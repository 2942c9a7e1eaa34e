// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
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
        (menu.item as ContextMenu).currentIndex = 0;
    }

    function open(x: real, y: real) {
        asked();
        if (commands.length === 0)
            return;
        menu.active = true;
        const opened = menu.item as ContextMenu;
        opened.commands = commands;
        opened.popup(root, x, y);
    }

    anchors.fill: parent

    TapHandler {
        acceptedButtons: Qt.RightButton

        onTapped: point => root.open(point.position.x, point.position.y)
    }

    Loader {
        id: menu

        active: false
        source: Qt.resolvedUrl("ContextMenu.qml") // found beside this file, wherever it is used
    }
}
