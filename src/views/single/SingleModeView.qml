// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The error of the last fetch, the placeholder of the running one, and its result: three
// independent sections.
Column {
    id: root

    readonly property SingleModePresenter mode: Presenters.singleMode

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: 8

    readonly property real innerWidth: width - leftPadding - rightPadding

    // The result's view, prepared while the tool is working.
    property Component result: null

    // Made each time it is shown, and gone when it has left.
    component Section: Reveal {
        id: section

        property alias source: content.source
        property alias sourceComponent: content.sourceComponent

        Loader {
            id: content

            active: section.presence > 0
            width: section.width
        }
    }

    // Always there, so that screen readers are told when it is shown, whatever else is
    // made at that moment.
    Reveal {
        shown: root.mode.hasError
        slides: true
        width: root.innerWidth

        FetchError {
            width: root.innerWidth
        }
    }

    Section {
        shown: root.mode.isFetching
        width: root.innerWidth

        sourceComponent: FetchingView {
            objectName: "fetching"
        }

        onShownChanged: if (shown && !root.result)
            root.result = Qt.createComponent("SingleInfoView.qml", Component.Asynchronous)
    }

    Section {
        shown: root.mode.hasInfo
        source: "SingleInfoView.qml"
        width: root.innerWidth
    }
}
