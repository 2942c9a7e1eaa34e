// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QLockFile>
#include <QStringList>

#include <chrono>

/// Allows one running program per folder of preferences, since two would overwrite each
/// other's.
class SingleInstance
{
public:
    explicit SingleInstance(const QString &preferencesFolder);

    enum class Start {
        first,      ///< this program may go on
        handedOver, ///< the first has taken the URLs, or come to the front
        refused,    ///< the first neither answers nor ends
    };

    /// Decides what becomes of this start. Waits for a first that has just begun, and cannot
    /// be reached yet, or is about to end, which takes a while on a busy machine.
    [[nodiscard]] Start settle(const QStringList &urls, const QString &token,
                               const QDBusConnection &bus = QDBusConnection::sessionBus(),
                               std::chrono::milliseconds patience = std::chrono::seconds(15));

private:
    [[nodiscard]] qint64 firstProcess() const;

    QLockFile m_lock;
    bool m_isFirst = false;
};
