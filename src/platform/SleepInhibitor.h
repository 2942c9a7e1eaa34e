// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusObject.h"

#include <QObject>

#include <optional>

/// Keeps the screen awake, through the desktop's screen saver service, which forgets
/// programs that have ended. Does nothing without one. Main thread.
class SleepInhibitor : public QObject
{
    Q_OBJECT

public:
    explicit SleepInhibitor(const QDBusConnection &bus = QDBusConnection::sessionBus());

    void setInhibited(bool isInhibited);

private:
    void follow();
    void inhibit();
    void release();

    BusObject m_screenSaver;
    bool m_isWanted = false;
    bool m_isAsking = false;
    std::optional<uint> m_cookie; // while the service holds it
};
