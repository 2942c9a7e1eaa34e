// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

Rectangle {
    color: Theme.hairline
    implicitHeight: 1
}
