// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon

// What was fetched, and what can be done with it.
Column {
    id: root

    bottomPadding: 20
    spacing: 12
    topPadding: 4

    SingleModeModel {
        id: model
    }

    VideoInfoCardView {
        info: model.info
        visible: !model.info.isPlaylist
        width: root.width
    }

    PlaylistInfoView {
        info: model.info
        selectionCount: model.selectionCount
        visible: model.info.isPlaylist
        width: root.width
    }

    FormatQualityPickerView {
        width: root.width
    }

    DownloadSection {
        width: root.width
    }
}
