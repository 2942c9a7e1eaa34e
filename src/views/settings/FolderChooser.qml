// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
// The look of Qt's own chooser, which is made of controls.
import QtQuick.Controls.Basic // qmllint disable unused-imports
import QtQuick.Dialogs
import Quillon.Presentation

// Qt's chooser for the download folder, where the desktop has none of its own.
FolderDialog {
    required property SettingsPresenter settings

    acceptLabel: "Select Folder"
    currentFolder: settings.startFolder
    title: "Choose Download Folder"

    objectName: "folderChooser"

    Component.onCompleted: open()
    onAccepted: settings.chooseFolder(selectedFolder)
}
