// SPDX-License-Identifier: GPL-3.0-or-later
#include "SleepInhibitor.h"

#include <QDBusReply>

#include <utility>

using namespace Qt::StringLiterals;

SleepInhibitor::SleepInhibitor(const QDBusConnection &bus)
    : m_screenSaver(bus, u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s,
                    u"org.freedesktop.ScreenSaver"_s)
{
}

void SleepInhibitor::setInhibited(bool isInhibited)
{
    if (m_isWanted == isInhibited)
        return; // a service that has refused is not asked again with every change
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
    const QVariantList arguments{u"quillon"_s, u"Playing a video"_s};
    m_screenSaver.call(u"Inhibit"_s, arguments, this, [this](const QDBusMessage &message) {
        m_isAsking = false;
        const QDBusReply<uint> reply(message);
        if (!reply.isValid())
            return;
        m_cookie = reply.value();
        follow(); // it may no longer be wanted
    });
}

void SleepInhibitor::release()
{
    m_screenSaver.call(u"UnInhibit"_s, {*std::exchange(m_cookie, std::nullopt)});
}
