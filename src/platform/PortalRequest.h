// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusObject.h"

#include <QObject>
#include <QVariantMap>

/// One question that the desktop's portal puts to the user, in a window of the portal's own.
/// Closed when this is destroyed. Main thread.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    explicit PortalRequest(const QDBusConnection &bus = QDBusConnection::sessionBus());
    ~PortalRequest() override;

    /// Calls a method, with the options as its last argument. `portal` is the unique name of
    /// who is at work under the portal's: answers of others do not count.
    void send(const QString &portal, const QString &interface, const QString &method,
              const QVariantList &arguments, QVariantMap options);

Q_SIGNALS:
    void answered(const QVariantMap &results);
    void cancelled(); ///< by the user
    void failed();

private Q_SLOTS:
    void handleResponse(uint response, const QVariantMap &results);

private:
    void listenAt(const QString &path);

    QDBusConnection m_bus;
    QString m_portal;
    QString m_path; // of the request's object; empty when it has ended
};
