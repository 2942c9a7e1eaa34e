// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopNotifier.h"

#include "ApplicationId.h"
#include "BusObject.h"

#include <QDBusReply>

using namespace Qt::StringLiterals;

namespace {

BusObject notifications()
{
    return {QDBusConnection::sessionBus(), u"org.freedesktop.Notifications"_s,
            u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s};
}

} // namespace

void DesktopNotifier::requestPermission()
{
    askCapabilities([] {});
}

void DesktopNotifier::post(const UserNotification &notification)
{
    if (m_readsMarkup)
        send(notification);
    else
        askCapabilities([this, notification] { send(notification); });
}

void DesktopNotifier::askCapabilities(const std::function<void()> &then)
{
    notifications().call(u"GetCapabilities"_s, {}, this, [this, then](const auto &message) {
        const QDBusReply<QStringList> reply(message);
        if (!reply.isValid())
            return; // no service yet; the next post asks again
        m_readsMarkup = reply.value().contains(u"body-markup"_s);
        then();
    });
}

void DesktopNotifier::send(const UserNotification &notification) const
{
    const QString body = *m_readsMarkup ? notification.body.toHtmlEscaped() : notification.body;
    const QVariantMap hints{
        {u"sound-name"_s, u"message-new-instant"_s},
        {u"desktop-entry"_s, applicationId},
        {u"x-quillon-identifier"_s, notification.identifier},
    };
    notifications().call(
        u"Notify"_s,
        {u"Quillon"_s, 0U, applicationId, notification.title, body, QStringList(), hints, -1});
}
