// SPDX-License-Identifier: GPL-3.0-or-later
#include "SleepInhibitor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QDBusMessage screenSaverCall(const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.ScreenSaver"_s,
                                          u"/org/freedesktop/ScreenSaver"_s,
                                          u"org.freedesktop.ScreenSaver"_s, method);
}

} // namespace

SleepInhibitor::SleepInhibitor(const QDBusConnection &bus)
    : m_bus(bus)
{
}

void SleepInhibitor::setInhibited(bool isInhibited)
{
    if (m_isWanted == isInhibited)
        return; // a service that has refused is not asked at every step
    m_isWanted = isInhibited;
    follow();
}

void SleepInhibitor::follow()
{
    if (m_isWanted && !m_cookie && !m_isAsking)
        inhibit();
    else if (!m_isWanted && m_cookie)
        release();
}

void SleepInhibitor::inhibit()
{
    m_isAsking = true;
    auto call = screenSaverCall(u"Inhibit"_s);
    call << u"quillon"_s << u"Playing a video"_s;
    auto *const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isAsking = false;
        const QDBusPendingReply<uint> reply(*watcher);
        if (reply.isError())
            return;
        m_cookie = reply.value();
        follow(); // it may not be wanted any more
    });
}

void SleepInhibitor::release()
{
    auto call = screenSaverCall(u"UnInhibit"_s);
    call << *std::exchange(m_cookie, std::nullopt);
    m_bus.asyncCall(call);
}
