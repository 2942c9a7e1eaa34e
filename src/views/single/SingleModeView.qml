// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// The error of the last fetch, the place of the one that runs, and what was
// fetched: three sections that do not know of each other.
Column {
    id: root

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: 8

    readonly property real innerWidth: width - leftPadding - rightPadding

    SingleModeModel {
        id: model
    }

    Reveal {
        id: errorSection

        // What leaves keeps its text until it has left.
        property string message

        shown: model.hasError
        slides: true
        width: root.innerWidth

        ErrorBannerView {
            objectName: "errorBanner"
            message: errorSection.message
            width: root.innerWidth
        }

        Binding on message {
            restoreMode: Binding.RestoreNone
            value: model.error
            when: model.hasError
        }
    }

    Reveal {
        // What shows the result is got ready while the tool is at work.
        property Component result: null

        shown: model.isFetching
        width: root.innerWidth

        onShownChanged: if (shown && !result)
            result = Qt.createComponent("SingleInfoView.qml", Component.Asynchronous)

        FetchingView {
            objectName: "fetching"
            width: root.innerWidth
        }
    }

    Reveal {
        id: infoSection

        shown: model.hasInfo
        width: root.innerWidth

        Loader {
            active: infoSection.presence > 0
            width: root.innerWidth

            source: "SingleInfoView.qml"
        }
    }
}
