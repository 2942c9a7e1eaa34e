// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon
import Quillon.Shared

// The commands of the program, with Ctrl where other desktops have Command.
T.MenuBar {
    id: root

    implicitHeight: contentHeight
    implicitWidth: contentWidth

    required property QuillonApp app

    signal aboutRequested

    background: Rectangle {
        color: Theme.window

        Divider {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }
    delegate: T.MenuBarItem {
        id: item

        // Qt's own goes on after the menu has been left.
        readonly property bool isLit: hovered || (highlighted && (activeFocus || (menu?.opened ?? false)))

        bottomPadding: 6
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        leftPadding: 12
        rightPadding: 12
        topPadding: 6

        Accessible.name: text.replace("&", "")

        Accessible.onPressAction: menu?.open()

        background: Rectangle {
            color: item.isLit ? Theme.primaryAt(0.08) : "transparent"
        }
        contentItem: PlainText {
            text: item.text.replace("&", "")

            Accessible.ignored: true
        }
    }

    AppMenu {
        title: "&Quillon"

        T.Action {
            text: "About Quillon"

            onTriggered: root.aboutRequested()
        }

        AppMenuSeparator {}

        T.Action {
            shortcut: "Ctrl+Q"
            text: "Quit"

            onTriggered: Qt.quit()
        }
    }

    AppMenu {
        title: "&Download"

        T.Action {
            shortcut: "Ctrl+F"
            text: "Fetch Info"

            onTriggered: root.app.fetchInfo()
        }

        T.Action {
            enabled: root.app.canStartDownload
            shortcut: "Ctrl+D"
            text: "Start Download"

            onTriggered: root.app.startDownload()
        }

        T.Action {
            enabled: root.app.canPause
            shortcut: "Ctrl+P"
            text: root.app.pauseTitle

            onTriggered: root.app.togglePause()
        }

        AppMenuSeparator {}

        T.Action {
            shortcut: "Ctrl+M"
            text: "Toggle Mode"

            onTriggered: root.app.toggleMode()
        }
    }
}
