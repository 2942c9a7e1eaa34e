// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick.Controls.Basic
import Quillon.Shared

MenuSeparator {
    bottomPadding: 4
    topPadding: 4

    contentItem: Divider {}
}
