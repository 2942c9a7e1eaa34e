// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

class QObject;

/// An object of another program on a bus, and one of its interfaces. It is called without
/// waiting: a generated proxy asks for the object's description first and blocks for seconds
/// where the program hangs.
class BusObject
{
public:
    /// Gets the answer or the error.
    using Handler = std::function<void(const QDBusMessage &reply)>;

    BusObject(QDBusConnection bus, QString service, QString path, QString interface);

    /// Calls a method whose answer nobody needs.
    void call(const QString &method, const QVariantList &arguments) const;

    /// The handler runs in the context's thread, and not at all once the context is gone.
    void call(const QString &method, const QVariantList &arguments, QObject *context,
              const Handler &handler) const;

    /// As call(), but waits for at most this many milliseconds.
    [[nodiscard]] QDBusMessage callAndWait(const QString &method, const QVariantList &arguments,
                                           int timeout) const;

private:
    [[nodiscard]] QDBusMessage message(const QString &method, const QVariantList &arguments) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
    QString m_interface;
};

/// The bus itself, which knows the names on it.
BusObject busDaemon(const QDBusConnection &bus);
