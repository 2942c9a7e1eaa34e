// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The folder that downloads go to, and Save for all settings.
Item {
    id: root

    required property SettingsPresenter settings
    readonly property alias field: field
    readonly property real indent: field.x

    implicitHeight: caption.height + 4 + 32

    SymbolIcon {
        id: symbol

        color: Theme.secondary
        size: 14
        symbol: "folder.fill"
        y: field.y + 9
    }

    PlainText {
        id: caption

        anchors.left: field.left
        color: Theme.secondary
        size: 11
        text: "Save Folder"

        Accessible.ignored: true
    }

    InputField {
        id: field

        anchors.bottom: parent.bottom
        anchors.left: symbol.right
        anchors.leftMargin: 12
        anchors.right: browse.left
        anchors.rightMargin: 12
        height: 32
        objectName: "downloadDir"
        placeholderText: "~/Downloads  (leave empty for default)"
        text: root.settings.downloadDir

        Accessible.name: caption.text

        onTextEdited: root.settings.downloadDir = text
    }

    PushButton {
        id: browse

        anchors.bottom: parent.bottom
        anchors.right: save.left
        anchors.rightMargin: 12
        height: 32
        objectName: "browseFolder"
        symbol: "folder.badge.plus"
        text: "Browse"

        onClicked: desktopChooser.open(root.Window.window, root.settings.startFolder)
    }

    PushButton {
        id: save

        anchors.bottom: parent.bottom
        anchors.right: parent.right
        height: 32
        objectName: "saveSettings"
        prominent: true
        symbol: root.settings.savedConfirmation ? "checkmark" : "square.and.arrow.down"
        text: root.settings.savedConfirmation ? "Saved!" : "Save"

        onClicked: root.settings.save()

        // Critically damped, so that it does not swing.
        Behavior on implicitWidth {
            NumberAnimation {
                duration: Theme.slow
                easing.type: Easing.OutQuint
            }
        }
    }

    DesktopFolderChooser {
        id: desktopChooser

        onChosen: folder => root.settings.chooseFolder(folder)
        // Qt's is heavy, so it is made when it is wanted, each time anew.
        onUnavailable: chooser.setSource("FolderChooser.qml", {
            "settings": root.settings
        })
    }

    Loader {
        id: chooser
    }
}
