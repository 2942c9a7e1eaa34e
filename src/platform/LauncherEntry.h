// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>

#include <optional>

/// The program's icon in docks that show progress on it. Main thread.
class LauncherEntry
{
public:
    explicit LauncherEntry(QDBusConnection bus = QDBusConnection::sessionBus());
    /// Leaves the icon without progress.
    ~LauncherEntry();
    Q_DISABLE_COPY_MOVE(LauncherEntry)

    /// From 0 to 1; nothing, if there is no progress to show. The bus hears of whole
    /// percents alone.
    void setProgress(std::optional<double> progress);

private:
    void update() const;

    QDBusConnection m_bus;
    int m_percent = -1; // while there is none
};
