// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QStringList>
#include <QUrl>

/// The settings panel: what its menus offer, and saving. A choice takes effect
/// at once and is stored by save() alone. An index of -1 means that the current
/// value is none of those offered.
class SettingsModel : public StatePresenter
{
    Q_OBJECT
    Q_PROPERTY(QStringList historyLabels READ historyLabels CONSTANT)
    Q_PROPERTY(QStringList speedLabels READ speedLabels CONSTANT)
    Q_PROPERTY(QStringList browserLabels READ browserLabels CONSTANT)
    Q_PROPERTY(int historyIndex READ historyIndex WRITE chooseHistory NOTIFY changed)
    Q_PROPERTY(int speedIndex READ speedIndex WRITE chooseSpeed NOTIFY changed)
    Q_PROPERTY(int browserIndex READ browserIndex WRITE chooseBrowser NOTIFY changed)
    Q_PROPERTY(bool savedConfirmation READ savedConfirmation NOTIFY changed)
    Q_PROPERTY(QUrl startFolder READ startFolder NOTIFY changed)

public:
    explicit SettingsModel(AppState &state);

    [[nodiscard]] static QStringList historyLabels();
    [[nodiscard]] static QStringList speedLabels();
    [[nodiscard]] static QStringList browserLabels();
    [[nodiscard]] int historyIndex() const;
    [[nodiscard]] int speedIndex() const;
    [[nodiscard]] int browserIndex() const;
    void chooseHistory(int index);
    void chooseSpeed(int index);
    void chooseBrowser(int index);

    /// Whether it is still told that the settings have been saved.
    [[nodiscard]] bool savedConfirmation() const { return m_savedConfirmation; }
    Q_INVOKABLE void save();

    /// Where the folder chooser begins: the folder set so far.
    [[nodiscard]] QUrl startFolder() const;
    /// Takes the folder that was chosen; its path without a trailing slash.
    Q_INVOKABLE void takeFolder(const QUrl &folder);

private:
    void setSavedConfirmation(bool saved);

    bool m_savedConfirmation = false;
};
