// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Format and quality of a run, its start, and how far it is.
Card {
    id: root

    required property QueueModel queue
    required property QueueControlsPresenter run

    readonly property alias actions: buttons
    property Item next // where the focus goes when a run has ended

    implicitHeight: content.height + 28

    Column {
        id: content

        spacing: 12
        width: root.width - 28
        x: 14
        y: 14

        FormatQualityPickerView {
            choice: Presenters.queueFormat
            width: parent.width
        }

        QueueActions {
            id: buttons

            height: 32
            next: root.next
            queue: root.queue
            run: root.run
            width: parent.width
        }
    }
}
