// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation

// What was fetched, and what can be done with it.
Column {
    id: root

    readonly property SingleModePresenter mode: Presenters.singleMode
    readonly property alias actions: section.actions
    readonly property alias entry: section.entry
    readonly property alias choice: picker

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
