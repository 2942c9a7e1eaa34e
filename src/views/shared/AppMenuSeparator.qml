// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

T.MenuSeparator {
    bottomPadding: 4
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    topPadding: 4

    contentItem: Divider {}
}
