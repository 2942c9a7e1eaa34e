// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation

// The keys of the main window that stand in no menu.
Item {
    id: root

    signal fieldRequested

    component ModeKey: Shortcut {
        required property int index

        sequence: "Ctrl+" + (index + 1)

        onActivated: Presenters.mode.currentIndex = index
    }

    ModeKey {
        index: 0
    }

    ModeKey {
        index: 1
    }

    ModeKey {
        index: 2
    }

    Shortcut {
        sequence: "Ctrl+L"

        onActivated: root.fieldRequested()
    }

    Shortcut {
        sequence: "Ctrl+,"

        onActivated: Presenters.settings.isShown = !Presenters.settings.isShown
    }

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: Presenters.downloadSection.isDownloading
        sequence: "Ctrl+."

        onActivated: Presenters.downloadSection.stop()
    }
}
