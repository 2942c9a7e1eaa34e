// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// The screen of a mode, on the page that scrolls.
Column {
    // The row with the screen's main button, what in it takes the focus, and where format
    // and quality are chosen; null while there is none.
    property Item actions: null
    property Item entry: null
    property FormatQualityPickerView choice: null

    readonly property real innerWidth: width - leftPadding - rightPadding

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: 8
}
