// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A quiet line where there is nothing else to show.
Item {
    property alias text: label.text

    implicitHeight: label.implicitHeight + 96

    PlainText {
        id: label

        anchors.centerIn: parent
        color: Theme.secondary
    }
}
