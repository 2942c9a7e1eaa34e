// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplicationService.h"

#include "ApplicationAdaptor.h"
#include "ApplicationId.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int answerTimeout = 1000; // ms

QString objectPath()
{
    return u'/' + QString(applicationId).replace(u'.', u'/');
}

} // namespace

ApplicationService::ApplicationService(const QDBusConnection &bus)
    : m_name(bus, {applicationId})
{
    new ApplicationAdaptor(this);
    // The object first: a program that the bus has started is called once it has the name.
    QDBusConnection(bus).registerObject(objectPath(), this);
    m_name.acquire();
}

void ApplicationService::close()
{
    m_name.release();
}

bool handOver(qint64 process, const QStringList &urls, const QString &token,
              const QDBusConnection &bus)
{
    // Another Quillon, on preferences of its own, may have the name.
    const QDBusMessage owner =
        busDaemon(bus).callAndWait(u"GetConnectionUnixProcessID"_s, {applicationId}, answerTimeout);
    if (owner.type() != QDBusMessage::ReplyMessage
        || owner.arguments().value(0).toLongLong() != process)
        return false;
    const QVariantMap platformData{{u"activation-token"_s, token},
                                   {u"desktop-startup-id"_s, token}};
    const BusObject running(bus, applicationId, objectPath(), u"org.freedesktop.Application"_s);
    const QDBusMessage answer = urls.isEmpty()
        ? running.callAndWait(u"Activate"_s, {platformData}, answerTimeout)
        : running.callAndWait(u"Open"_s, {urls, platformData}, answerTimeout);
    return answer.type() == QDBusMessage::ReplyMessage;
}
