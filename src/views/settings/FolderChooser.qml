// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Dialogs
import Quillon

// The desktop's chooser for the download folder.
FolderDialog {
    required property SettingsModel settings

    acceptLabel: "Select Folder"
    currentFolder: settings.startFolder
    title: "Choose Download Folder"

    objectName: "folderChooser"

    Component.onCompleted: open()
    onAccepted: settings.takeFolder(selectedFolder)
}
