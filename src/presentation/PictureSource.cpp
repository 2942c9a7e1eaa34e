// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureSource.h"

#include <QHostAddress>
#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The ranges registered for this machine, private networks, links, tests and groups.
bool isLocal(const QHostAddress &address)
{
    static const QList<std::pair<QHostAddress, int>> ranges = [] {
        QList<std::pair<QHostAddress, int>> list;
        for (const char *const range :
             {"0.0.0.0/8", "10.0.0.0/8", "100.64.0.0/10", "127.0.0.0/8", "169.254.0.0/16",
              "172.16.0.0/12", "192.0.0.0/24", "192.168.0.0/16", "198.18.0.0/15", "224.0.0.0/3",
              "::/127", "64:ff9b::/96", "fc00::/7", "fe80::/9", "ff00::/8"})
            list.append(QHostAddress::parseSubnet(QString::fromLatin1(range)));
        return list;
    }();
    bool isIPv4 = false;
    const QHostAddress plain(address.toIPv4Address(&isIPv4)); // also one that is mapped
    const QHostAddress &looked = isIPv4 ? plain : address;
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const auto &range) { return looked.isInSubnet(range); });
}

} // namespace

bool PictureSource::isAllowed(const QUrl &url) const
{
    const bool isSecure = url.scheme() == u"https";
    if (!url.isValid() || url.host().isEmpty() || (!isSecure && url.scheme() != u"http"))
        return false;
    constexpr int securePort = 443;
    constexpr int port = 80;
    const QString place = u"%1:%2"_s.arg(url.host()).arg(url.port(isSecure ? securePort : port));
    if (!exception.isEmpty() && place == exception)
        return true;
    QString host = url.host();
    while (host.endsWith(u'.'))
        host.chop(1);
    const bool isThisMachine = host == u"localhost" || host.endsWith(u".localhost");
    const QHostAddress address(host);
    return !isThisMachine && (address.isNull() || !isLocal(address));
}
