// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

QDBusMessage notificationsCall(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

} // namespace

void DesktopNotifier::requestAuthorization()
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
    const auto call = QDBusConnection::sessionBus().asyncCall(
        notificationsCall(QStringLiteral("GetCapabilities")));
    auto *const watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, then] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList> reply(*watcher);
        if (reply.isError())
            return; // no service now; one that starts later is asked by the next post
        m_readsMarkup = reply.value().contains(QStringLiteral("body-markup"));
        then();
    });
}

void DesktopNotifier::send(const UserNotification &notification) const
{
    const QString body = *m_readsMarkup ? notification.body.toHtmlEscaped() : notification.body;
    const QVariantMap hints{
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
        {QStringLiteral("desktop-entry"), QStringLiteral("quillon")},
        {QStringLiteral("x-quillon-identifier"), notification.identifier},
    };
    auto call = notificationsCall(QStringLiteral("Notify"));
    call << QStringLiteral("Quillon") << 0U << QStringLiteral("quillon") << notification.title
         << body << QStringList() << hints << -1;
    QDBusConnection::sessionBus().asyncCall(call);
}
