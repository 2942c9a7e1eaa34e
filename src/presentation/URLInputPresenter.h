// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QtQml/qqmlregistration.h>

/// The input bar: one text field and one button whose meaning follows the mode.
class URLInputPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QString currentURL READ currentURL NOTIFY changed)
    Q_PROPERTY(QString placeholder READ placeholder NOTIFY changed)
    Q_PROPERTY(QString fieldIcon READ fieldIcon NOTIFY changed)
    Q_PROPERTY(QString buttonLabel READ buttonLabel NOTIFY changed)
    Q_PROPERTY(QString pasteLabel READ pasteLabel NOTIFY changed)
    Q_PROPERTY(QString buttonIcon READ buttonIcon NOTIFY changed)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)
    Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
    Q_PROPERTY(bool showsMixedBar READ showsMixedBar NOTIFY changed)
    Q_PROPERTY(bool fetchesPlaylist READ fetchesPlaylist NOTIFY changed)

public:
    explicit URLInputPresenter(AppState &state);

    /// The text that the field edits in the current mode.
    [[nodiscard]] QString currentURL() const;
    [[nodiscard]] QString placeholder() const;
    [[nodiscard]] QString fieldIcon() const;
    [[nodiscard]] QString buttonLabel() const;
    /// The command that pastes and then presses the button.
    [[nodiscard]] QString pasteLabel() const;
    [[nodiscard]] QString buttonIcon() const;
    /// Whether the current mode's own operation is running.
    [[nodiscard]] bool isBusy() const;
    /// Whether the button is enabled; Return in the field does not check.
    [[nodiscard]] bool canSubmit() const;
    [[nodiscard]] bool showsMixedBar() const;
    [[nodiscard]] bool fetchesPlaylist() const;

    /// The user has changed the text.
    Q_INVOKABLE void edit(const QString &text);
    /// Handles a drop: its first line that is not blank replaces the text as if it had
    /// been typed.
    Q_INVOKABLE void take(const QString &dropped);
    Q_INVOKABLE void handleSubmit();
    Q_INVOKABLE void pasteAndSubmit();
    Q_INVOKABLE void clearURL();
    /// Chooses what a mixed URL fetches; what was fetched before is cleared.
    Q_INVOKABLE void choosePlaylist(bool asPlaylist);

private:
    void lookForSeveral(const QString &text, const QString &before);
};
