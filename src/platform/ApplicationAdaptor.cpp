// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplicationAdaptor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// It is passed on to the display's server by way of the environment, so only what such
// tokens consist of is taken.
QString tokenIn(const QVariantMap &platformData)
{
    constexpr qsizetype most = 256;
    QString token = platformData.value(u"activation-token"_s).toString();
    if (token.isEmpty())
        token = platformData.value(u"desktop-startup-id"_s).toString();
    const bool isPlain = std::all_of(token.cbegin(), token.cend(), [](QChar letter) {
        return letter > u' ' && letter < u'\x7f';
    });
    return isPlain && token.size() <= most ? token : QString();
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(ApplicationService *service)
    : QDBusAbstractAdaptor(service)
    , m_service(*service)
{
}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    Q_EMIT m_service.activated(tokenIn(platformData));
}

void ApplicationAdaptor::Open(const QStringList &uris, const QVariantMap &platformData)
{
    Q_EMIT m_service.openRequested(uris, tokenIn(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString &name, const QVariantList & /*parameter*/,
                                        const QVariantMap &platformData)
{
    Q_EMIT m_service.actionRequested(name, tokenIn(platformData));
}
