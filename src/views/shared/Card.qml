// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// The surface that things stand on.
Rectangle {
    border.color: Theme.hairline
    border.width: 1
    color: Theme.card
    radius: Theme.radius
}
