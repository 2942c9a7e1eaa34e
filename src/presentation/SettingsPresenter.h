// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

/// The settings panel: what its menus offer, and saving. A choice takes effect at once
/// and is stored by save() alone. An index of -1 means that the current value is not
/// among those offered.
class SettingsPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY changed)
    Q_PROPERTY(QString downloadDir READ downloadDir WRITE setDownloadDir NOTIFY changed)
    Q_PROPERTY(bool notificationsEnabled READ notificationsEnabled WRITE setNotificationsEnabled
                   NOTIFY changed)
    Q_PROPERTY(QStringList historyLabels READ historyLabels CONSTANT)
    Q_PROPERTY(QStringList speedLabels READ speedLabels CONSTANT)
    Q_PROPERTY(QStringList browserLabels READ browserLabels CONSTANT)
    Q_PROPERTY(int historyIndex READ historyIndex WRITE chooseHistory NOTIFY changed)
    Q_PROPERTY(int speedIndex READ speedIndex WRITE chooseSpeed NOTIFY changed)
    Q_PROPERTY(int browserIndex READ browserIndex WRITE chooseBrowser NOTIFY changed)
    Q_PROPERTY(bool savedConfirmation READ savedConfirmation NOTIFY changed)
    Q_PROPERTY(QUrl startFolder READ startFolder NOTIFY changed)

public:
    explicit SettingsPresenter(AppState &state);

    [[nodiscard]] bool isShown() const { return state().showSettings(); }
    void setShown(bool shown) { state().showSettings = shown; }
    [[nodiscard]] QString downloadDir() const { return state().downloadDir(); }
    void setDownloadDir(const QString &folder) { state().downloadDir = folder; }
    [[nodiscard]] bool notificationsEnabled() const { return state().notificationsEnabled(); }
    void setNotificationsEnabled(bool enabled) { state().notificationsEnabled = enabled; }
    [[nodiscard]] static QStringList historyLabels();
    [[nodiscard]] static QStringList speedLabels();
    [[nodiscard]] static QStringList browserLabels();
    [[nodiscard]] int historyIndex() const;
    [[nodiscard]] int speedIndex() const;
    [[nodiscard]] int browserIndex() const;
    void chooseHistory(int index);
    void chooseSpeed(int index);
    void chooseBrowser(int index);

    /// Whether the panel still says that the settings have been saved.
    [[nodiscard]] bool savedConfirmation() const { return m_savedConfirmation; }
    Q_INVOKABLE void save();

    /// Where the folder chooser starts: the current folder.
    [[nodiscard]] QUrl startFolder() const;
    /// Sets the folder, by its path without a trailing slash.
    Q_INVOKABLE void chooseFolder(const QUrl &folder);

private:
    void setSavedConfirmation(bool saved);

    bool m_savedConfirmation = false;
};
