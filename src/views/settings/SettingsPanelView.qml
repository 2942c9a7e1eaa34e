// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

Column {
    EmptyNote {
        implicitHeight: 64
        text: "Settings are not there yet."
        width: parent.width
    }

    Divider {
        width: parent.width
    }
}
