// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusObject.h"

#include <QList>
#include <QObject>
#include <QVariant>

/// Keeps the desktop from doing something, through the first of its services that agrees;
/// these forget programs that have ended. Does nothing without one. Main thread.
class Inhibitor : public QObject
{
    Q_OBJECT

public:
    struct Service
    {
        BusObject object;
        QVariantList arguments;                             // of its method Inhibit
        int answer;                                         // the type of what Inhibit answers
        std::function<void(const QVariant &given)> release; // gets that answer
    };

    explicit Inhibitor(QList<Service> services);

    void setInhibited(bool isInhibited);

private:
    void follow();
    void ask(qsizetype index);
    void handle(qsizetype index, const QDBusMessage &reply);

    const QList<Service> m_services;
    bool m_isWanted = false;
    bool m_isAsking = false;
    qsizetype m_holder = -1; // the service that has agreed
    QVariant m_given;
};

/// The screen saver, so that the screen stays awake.
QList<Inhibitor::Service> screenServices(
    const QDBusConnection &bus = QDBusConnection::sessionBus());

/// The session manager, else the power manager, else the portal, so that the computer is not
/// suspended when it idles. Whoever wants a suspend still gets it.
QList<Inhibitor::Service> suspendServices(
    const QDBusConnection &bus = QDBusConnection::sessionBus());
