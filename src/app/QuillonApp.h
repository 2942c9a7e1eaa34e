// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

/// The program: owns the application state for its whole life, and the commands of the
/// menu bar with the rules that enable them.
class QuillonApp : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool canStartDownload READ canStartDownload NOTIFY commandsChanged)
    Q_PROPERTY(bool canPause READ canPause NOTIFY commandsChanged)
    Q_PROPERTY(QString pauseTitle READ pauseTitle NOTIFY commandsChanged)
    Q_PROPERTY(QString versionText READ versionText CONSTANT)

public:
    /// Requests permission to notify, then makes the state.
    explicit QuillonApp(AppStateParts parts);

    [[nodiscard]] AppState &state() { return m_state; }

    [[nodiscard]] bool canStartDownload() const;
    [[nodiscard]] bool canPause() const;
    [[nodiscard]] QString pauseTitle() const;
    /// The version as the About window shows it.
    [[nodiscard]] static QString versionText();

    Q_INVOKABLE void fetchInfo();
    Q_INVOKABLE void startDownload();
    Q_INVOKABLE void togglePause();
    /// Between single and multi; browse goes to single.
    Q_INVOKABLE void toggleMode();

    /// Fetches a single URL; puts several into the queue, and also the one while something
    /// is being fetched or downloaded. Takes at most 100, and leaves out what is not of the
    /// web.
    void open(const QStringList &urls);

Q_SIGNALS:
    void commandsChanged();

private:
    [[nodiscard]] bool isBusy() const;

    AppState m_state;
};
