// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// The screen of a mode, on the page that scrolls.
ActionColumn {
    readonly property real innerWidth: width - leftPadding - rightPadding

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: 8
}
