// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// The error of the last fetch, with its text until it has left.
ErrorBannerView {
    id: root

    objectName: "errorBanner"

    SingleModeModel {
        id: model
    }

    Binding on text {
        restoreMode: Binding.RestoreNone
        value: model.error
        when: model.hasError
    }
}
