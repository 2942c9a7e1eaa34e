// SPDX-License-Identifier: GPL-3.0-or-later
#include "PortalRequest.h"

#include <QDBusObjectPath>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

const QString requestInterface = u"org.freedesktop.portal.Request"_s;

// What a response means.
constexpr uint success = 0;
constexpr uint userCancelled = 1;
constexpr uint otherwise = 2;

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus)
    : m_bus(bus)
{
}

PortalRequest::~PortalRequest()
{
    if (!m_path.isEmpty())
        BusObject(m_bus, m_portal, m_path, requestInterface).call(u"Close"_s, {});
}

void PortalRequest::send(const QString &interface, const QString &method,
                         const QVariantList &arguments, const QVariantMap &options)
{
    busDaemon(m_bus).call(u"GetNameOwner"_s, {u"org.freedesktop.portal.Desktop"_s}, this,
                          [this, interface, method, arguments, options](const QDBusMessage &reply) {
                              m_portal = reply.arguments().value(0).toString();
                              if (reply.type() == QDBusMessage::ReplyMessage && !m_portal.isEmpty())
                                  ask(interface, method, arguments, options);
                              else
                                  Q_EMIT failed();
                          });
}

void PortalRequest::ask(const QString &interface, const QString &method, QVariantList arguments,
                        QVariantMap options)
{
    const QString token = u"quillon"_s + QUuid::createUuid().toString(QUuid::Id128);
    options.insert(u"handle_token"_s, token);
    arguments.append(options);
    // Made of the token and this client's name, so that the answer cannot come before
    // anybody listens.
    listenAt(u"/org/freedesktop/portal/desktop/request/"_s
             + m_bus.baseService().mid(1).replace(u'.', u'_') + u'/' + token);
    BusObject(m_bus, m_portal, u"/org/freedesktop/portal/desktop"_s, interface)
        .call(method, arguments, this, [this](const QDBusMessage &reply) {
            const auto path = reply.arguments().value(0).value<QDBusObjectPath>().path();
            if (reply.type() != QDBusMessage::ReplyMessage)
                handleResponse(otherwise, {});
            else if (!m_path.isEmpty() && path != m_path)
                listenAt(path); // portals before 0.9
        });
}

void PortalRequest::listenAt(const QString &path)
{
    m_path = path;
    m_bus.connect(m_portal, path, requestInterface, u"Response"_s, this,
                  SLOT(handleResponse(uint, QVariantMap)));
}

void PortalRequest::handleResponse(uint response, const QVariantMap &results)
{
    m_path.clear();
    if (response == success)
        Q_EMIT answered(results);
    else if (response == userCancelled)
        Q_EMIT cancelled();
    else
        Q_EMIT failed();
}
