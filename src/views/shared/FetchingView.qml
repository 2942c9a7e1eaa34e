// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Takes the place of what is being fetched.
Item {
    implicitHeight: row.implicitHeight + 56

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 10

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            size: 16
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            text: "Fetching video info..."
        }
    }
}
