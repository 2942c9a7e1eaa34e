// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// The window around it: as large as its content, in the middle of the screen.
Window {
    id: root

    required property string version

    color: Theme.window
    flags: Qt.Dialog | Qt.CustomizeWindowHint | Qt.WindowTitleHint | Qt.WindowCloseButtonHint
    height: content.height
    maximumHeight: height
    maximumWidth: width
    minimumHeight: height
    minimumWidth: width
    objectName: "aboutWindow"
    title: "About Quillon"
    width: content.width

    Component.onCompleted: {
        x = Screen.virtualX + (Screen.width - width) / 2;
        y = Screen.virtualY + (Screen.height - height) / 2;
    }

    AboutView {
        id: content

        version: root.version
    }

    Shortcut {
        sequences: ["Escape", "Ctrl+W"]

        onActivated: root.close()
    }
}
