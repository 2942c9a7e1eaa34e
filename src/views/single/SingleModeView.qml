// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The error of the last fetch, the placeholder of the running one, and its result: three
// independent sections.
ModePage {
    id: root

    readonly property SingleModePresenter mode: Presenters.singleMode
    readonly property ActionColumn info: result.item ? result.item as ActionColumn : null

    actions: info?.actions ?? null
    choice: info?.choice ?? null
    entry: info?.entry ?? null

    // The result's view, prepared while the tool is working. It goes with this one: what the
    // engine collects at its own end would, still loading, reach for a loader that has gone.
    property Component resultView: null

    // Made each time it is shown, and gone when it has left.
    component Section: Reveal {
        id: section

        readonly property alias item: content.item
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

        onShownChanged: if (shown && !root.resultView)
            root.resultView = Qt.createComponent("SingleInfoView.qml", Component.Asynchronous, root)
    }

    Section {
        id: result

        shown: root.mode.hasInfo
        source: "SingleInfoView.qml"
        width: root.innerWidth
    }
}
