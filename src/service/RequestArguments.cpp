// SPDX-License-Identifier: GPL-3.0-or-later
#include "RequestArguments.h"

QStringList leadingArguments()
{
    return {QStringLiteral("--extractor-args"),
            QStringLiteral("youtube:player_client=tv_embedded")};
}

QStringList cookieArguments(const QString &browser)
{
    if (browser.isEmpty() || browser == u"none")
        return {};
    return {QStringLiteral("--cookies-from-browser"), browser};
}

QStringList videoArguments(const QString &url, const QString &cookiesBrowser)
{
    return leadingArguments() << cookieArguments(cookiesBrowser) << QStringLiteral("--dump-json")
                              << QStringLiteral("--no-playlist") << QStringLiteral("--no-warnings")
                              << QStringLiteral("--quiet") << url;
}

QStringList playlistArguments(const QString &url, const QString &cookiesBrowser)
{
    return leadingArguments() << cookieArguments(cookiesBrowser) << QStringLiteral("--dump-json")
                              << QStringLiteral("--flat-playlist")
                              << QStringLiteral("--yes-playlist") << QStringLiteral("--no-warnings")
                              << QStringLiteral("--quiet") << url;
}

QStringList searchArguments(const QString &query, int limit)
{
    return leadingArguments() << QStringLiteral("--dump-json") << QStringLiteral("--flat-playlist")
                              << QStringLiteral("--no-warnings") << QStringLiteral("--quiet")
                              << QStringLiteral("ytsearch%1:").arg(limit) + query;
}

QStringList streamArguments(const QString &videoURL)
{
    return leadingArguments() << QStringLiteral("-f") << QStringLiteral("best[ext=mp4]/best")
                              << QStringLiteral("--get-url") << QStringLiteral("--no-playlist")
                              << QStringLiteral("--no-warnings") << QStringLiteral("--quiet")
                              << videoURL;
}

bool looksLikeOption(const QString &address)
{
    return address.startsWith(u'-');
}

QString optionAddressMessage(const QString &address)
{
    return QStringLiteral("The address “%1” begins with a hyphen, so it is not an address")
        .arg(address);
}
