// SPDX-License-Identifier: GPL-3.0-or-later
#include "Inhibitor.h"

#include "ApplicationId.h"

#include <QDBusObjectPath>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr uint suspendFlag = 4; // of the session manager, and of the portal

Inhibitor::Service withCookie(const BusObject &object, const QVariantList &arguments,
                              const QString &releaseMethod)
{
    return {.object = object,
            .arguments = arguments,
            .answer = QMetaType::UInt,
            .release = [object, releaseMethod](const QVariant &cookie) {
                object.call(releaseMethod, {cookie});
            }};
}

Inhibitor::Service portal(const QDBusConnection &bus, const QString &reason)
{
    const auto release = [bus](const QVariant &request) {
        BusObject(bus, u"org.freedesktop.portal.Desktop"_s, request.value<QDBusObjectPath>().path(),
                  u"org.freedesktop.portal.Request"_s)
            .call(u"Close"_s, {});
    };
    return {.object = BusObject(bus, u"org.freedesktop.portal.Desktop"_s,
                                u"/org/freedesktop/portal/desktop"_s,
                                u"org.freedesktop.portal.Inhibit"_s),
            .arguments = {QString(), suspendFlag, QVariantMap{{u"reason"_s, reason}}},
            .answer = QMetaType::fromType<QDBusObjectPath>().id(),
            .release = release};
}

} // namespace

Inhibitor::Inhibitor(QList<Service> services)
    : m_services(std::move(services))
{
}

void Inhibitor::setInhibited(bool isInhibited)
{
    if (m_isWanted == isInhibited)
        return; // services that have refused are not asked again with every change
    m_isWanted = isInhibited;
    follow();
}

void Inhibitor::follow()
{
    if (m_isWanted && m_holder < 0 && !m_isAsking)
        ask(0);
    else if (!m_isWanted && m_holder >= 0)
        m_services.at(std::exchange(m_holder, -1)).release(m_given);
}

void Inhibitor::ask(qsizetype index)
{
    m_isAsking = index < m_services.size();
    if (!m_isAsking)
        return;
    const Service &service = m_services.at(index);
    service.object.call(u"Inhibit"_s, service.arguments, this,
                        [this, index](const QDBusMessage &reply) { handle(index, reply); });
}

void Inhibitor::handle(qsizetype index, const QDBusMessage &reply)
{
    const QVariant given = reply.arguments().value(0);
    if (reply.type() != QDBusMessage::ReplyMessage
        || given.metaType().id() != m_services.at(index).answer) {
        ask(index + 1);
        return;
    }
    m_isAsking = false;
    m_holder = index;
    m_given = given;
    follow(); // it may no longer be wanted
}

QList<Inhibitor::Service> screenServices(const QDBusConnection &bus)
{
    return {
        withCookie(BusObject(bus, u"org.freedesktop.ScreenSaver"_s,
                             u"/org/freedesktop/ScreenSaver"_s, u"org.freedesktop.ScreenSaver"_s),
                   {applicationId, u"Playing a video"_s}, u"UnInhibit"_s)};
}

QList<Inhibitor::Service> suspendServices(const QDBusConnection &bus)
{
    const QString reason = u"Downloading videos"_s;
    constexpr uint noWindow = 0;
    return {withCookie(BusObject(bus, u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s,
                                 u"org.gnome.SessionManager"_s),
                       {applicationId, noWindow, reason, suspendFlag}, u"Uninhibit"_s),
            withCookie(BusObject(bus, u"org.freedesktop.PowerManagement"_s,
                                 u"/org/freedesktop/PowerManagement/Inhibit"_s,
                                 u"org.freedesktop.PowerManagement.Inhibit"_s),
                       {applicationId, reason}, u"UnInhibit"_s),
            portal(bus, reason)};
}
