// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon

// What was fetched, and what can be done with it.
Column {
    id: root

    spacing: 12
    topPadding: 4

    // What leaves keeps its look until it has left.
    property videoInfo info

    SingleModeModel {
        id: model
    }

    Binding on info {
        restoreMode: Binding.RestoreNone
        value: model.info
        when: model.hasInfo
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
        model: SingleFormatQualityModel {}
        width: root.width
    }

    DownloadSection {
        width: root.width
    }
}
