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

    /// Calls a method of the portal, with the options as its last argument. Only who is at work
    /// under the portal's name at that moment can answer.
    void send(const QString &interface, const QString &method, const QVariantList &arguments,
              const QVariantMap &options);

Q_SIGNALS:
    void answered(const QVariantMap &results);
    void cancelled(); ///< by the user
    void failed();

private Q_SLOTS:
    void handleResponse(uint response, const QVariantMap &results);

private:
    void ask(const QString &interface, const QString &method, QVariantList arguments,
             QVariantMap options);
    void listenAt(const QString &path);

    QDBusConnection m_bus;
    QString m_portal; // its unique name
    QString m_path;   // of the request's object; empty when it has ended
};
