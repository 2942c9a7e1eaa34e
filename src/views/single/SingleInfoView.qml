// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation

// What was fetched, and what can be done with it.
ActionColumn {
    id: root

    readonly property SingleModePresenter mode: Presenters.singleMode

    actions: section.actions
    choice: picker
    entry: section.entry

    spacing: 12
    topPadding: 4

    // What leaves keeps its appearance until it has left.
    property videoInfo info

    Binding on info {
        restoreMode: Binding.RestoreNone
        value: root.mode.info
        when: root.mode.hasInfo
    }

    VideoInfoCardView {
        info: root.info
        visible: !root.info.isPlaylist
        width: root.width
    }

    PlaylistInfoView {
        info: root.info
        visible: root.info.isPlaylist
        width: root.width
    }

    FormatQualityPickerView {
        id: picker

        choice: Presenters.singleFormat
        width: root.width
    }

    DownloadSection {
        id: section

        width: root.width
    }
}
