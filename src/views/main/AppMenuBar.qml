// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Presentation
import Quillon.Shared

// The commands of the program.
T.MenuBar {
    id: root

    implicitHeight: contentHeight
    implicitWidth: contentWidth

    required property QuillonApp app

    signal aboutRequested

    Shortcut {
        sequence: "F10"

        onActivated: (root.itemAt(0) as T.MenuBarItem).triggered()
    }

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

        // Qt's own would continue after the menu has been left.
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

        AppCommand {
            text: "About Quillon"

            onTriggered: root.aboutRequested()
        }

        AppMenuSeparator {}

        AppCommand {
            keys: "Ctrl+Q"
            text: "Quit"

            onTriggered: Qt.quit()
        }
    }

    AppMenu {
        title: "&Download"

        AppCommand {
            keys: "Ctrl+F"
            text: "Fetch Info"

            onTriggered: root.app.fetchInfo()
        }

        AppCommand {
            enabled: root.app.canStartDownload
            keys: "Ctrl+D"
            text: "Start Download"

            onTriggered: root.app.startDownload()
        }

        AppCommand {
            enabled: root.app.canPause
            keys: "Ctrl+P"
            text: root.app.pauseTitle

            onTriggered: root.app.togglePause()
        }

        AppMenuSeparator {}

        AppCommand {
            keys: "Ctrl+M"
            text: "Toggle Mode"

            onTriggered: root.app.toggleMode()
        }
    }
}
