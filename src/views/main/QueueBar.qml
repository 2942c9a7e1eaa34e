// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Stands for the queue's buttons while its list has been scrolled past them.
SlotCard {
    entry: buttons.entry
    implicitHeight: 58
    objectName: "queueBar"

    Accessible.name: "Queue actions"

    QueueActions {
        id: buttons

        anchors.fill: parent
        anchors.margins: 12
        isBar: true
        queue: Presenters.queue
        run: Presenters.queueControls
    }
}
