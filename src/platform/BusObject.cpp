// SPDX-License-Identifier: GPL-3.0-or-later
#include "BusObject.h"

#include <QDBusPendingCallWatcher>

BusObject::BusObject(QDBusConnection bus, QString service, QString path, QString interface)
    : m_bus(std::move(bus))
    , m_service(std::move(service))
    , m_path(std::move(path))
    , m_interface(std::move(interface))
{
}

void BusObject::call(const QString &method, const QVariantList &arguments) const
{
    m_bus.asyncCall(message(method, arguments));
}

void BusObject::call(const QString &method, const QVariantList &arguments, QObject *context,
                     const Handler &handler) const
{
    // What Qt makes of a call without a bus never ends.
    const QDBusPendingCall pending = m_bus.isConnected()
        ? m_bus.asyncCall(message(method, arguments))
        : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, QString()));
    auto *const watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, handler] {
        watcher->deleteLater();
        handler(watcher->reply());
    });
}

QDBusMessage BusObject::callAndWait(const QString &method, const QVariantList &arguments,
                                    int timeout) const
{
    return m_bus.call(message(method, arguments), QDBus::Block, timeout);
}

BusObject busDaemon(const QDBusConnection &bus)
{
    return {bus, QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus")};
}

QDBusMessage BusObject::message(const QString &method, const QVariantList &arguments) const
{
    auto call = QDBusMessage::createMethodCall(m_service, m_path, m_interface, method);
    call.setArguments(arguments);
    return call;
}
