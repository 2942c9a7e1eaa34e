// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Names a row of controls; equally wide in every row, so that the controls line up.
PlainText {
    color: Theme.secondary
    font.weight: Font.DemiBold
    horizontalAlignment: Text.AlignRight
    size: 12
    width: 62
}
