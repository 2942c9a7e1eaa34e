// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Basic
import Quillon
import Quillon.Shared

// The commands of the program, with Ctrl where other desktops have Command.
MenuBar {
    id: root

    required property QuillonApp app

    signal aboutRequested

    background: Rectangle {
        color: Theme.window

        Divider {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    delegate: MenuBarItem {
        id: item

        leftPadding: 12
        rightPadding: 12

        Accessible.name: text.replace("&", "")

        background: Rectangle {
            color: item.highlighted || item.hovered ? Theme.primaryAt(0.08) : "transparent"
        }
        contentItem: PlainText {
            text: item.text.replace("&", "")

            Accessible.ignored: true
        }
    }

    AppMenu {
        title: "&Quillon"

        Action {
            text: "About Quillon"

            onTriggered: root.aboutRequested()
        }

        AppMenuSeparator {}

        Action {
            shortcut: "Ctrl+Q"
            text: "Quit"

            onTriggered: Qt.quit()
        }
    }

    AppMenu {
        title: "&Download"

        Action {
            shortcut: "Ctrl+F"
            text: "Fetch Info"

            onTriggered: root.app.fetchInfo()
        }

        Action {
            enabled: root.app.canStartDownload
            shortcut: "Ctrl+D"
            text: "Start Download"

            onTriggered: root.app.startDownload()
        }

        Action {
            enabled: root.app.canPause
            shortcut: "Ctrl+P"
            text: root.app.pauseTitle

            onTriggered: root.app.togglePause()
        }

        AppMenuSeparator {}

        Action {
            shortcut: "Ctrl+M"
            text: "Toggle Mode"

            onTriggered: root.app.toggleMode()
        }
    }
}
