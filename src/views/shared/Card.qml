// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A surface for content.
Rectangle {
    border.color: Theme.hairline
    border.width: 1
    color: Theme.card
    radius: Theme.radius
}
