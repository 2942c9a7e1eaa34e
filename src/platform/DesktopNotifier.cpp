// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

QDBusMessage notificationsCall(const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
                                          u"/org/freedesktop/Notifications"_s,
                                          u"org.freedesktop.Notifications"_s, method);
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
    const auto call =
        QDBusConnection::sessionBus().asyncCall(notificationsCall(u"GetCapabilities"_s));
    auto *const watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, then] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList> reply(*watcher);
        if (reply.isError())
            return; // no service now; one that starts later is asked by the next post
        m_readsMarkup = reply.value().contains(u"body-markup"_s);
        then();
    });
}

void DesktopNotifier::send(const UserNotification &notification) const
{
    const QString body = *m_readsMarkup ? notification.body.toHtmlEscaped() : notification.body;
    const QVariantMap hints{
        {u"sound-name"_s, u"message-new-instant"_s},
        {u"desktop-entry"_s, u"quillon"_s},
        {u"x-quillon-identifier"_s, notification.identifier},
    };
    auto call = notificationsCall(u"Notify"_s);
    call << u"Quillon"_s << 0U << u"quillon"_s << notification.title << body << QStringList()
         << hints << -1;
    QDBusConnection::sessionBus().asyncCall(call);
}
