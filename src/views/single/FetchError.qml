// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The error of the last fetch; it keeps its text until it has left.
ErrorBannerView {
    id: root

    readonly property SingleModePresenter mode: Presenters.singleMode

    onCopied: Clipboard.copy(text)
    onMenuAsked: commands = VideoCommands.ofMessage(text)
    objectName: "errorBanner"

    Binding on text {
        restoreMode: Binding.RestoreNone
        value: root.mode.error
        when: root.mode.hasError
    }
}
