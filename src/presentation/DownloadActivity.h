// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <optional>

class AppState;
class Inhibitor;
class LauncherEntry;

/// Tells the desktop of downloads: how far a run of single mode or of the queue is, and that
/// the computer must not be suspended in the middle of one.
class DownloadActivity : public QObject
{
    Q_OBJECT

public:
    /// All of them outlive it.
    DownloadActivity(AppState &state, LauncherEntry &entry, Inhibitor &suspend);

private:
    void followQueue();
    void show();
    [[nodiscard]] bool isWorking() const;
    /// From 0 to 1 over all files of the run; nothing without one.
    [[nodiscard]] std::optional<double> progress() const;
    [[nodiscard]] double progressOfFile() const;

    AppState &m_state;
    LauncherEntry &m_entry;
    Inhibitor &m_suspend;
};
