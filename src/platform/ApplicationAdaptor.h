// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ApplicationService.h"

#include <QDBusAbstractAdaptor>

/// The interface on the bus of ApplicationService. The names are the interface's.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(ApplicationService *service);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &name, const QVariantList &parameter,
                        const QVariantMap &platformData);

private:
    ApplicationService &m_service;
};
