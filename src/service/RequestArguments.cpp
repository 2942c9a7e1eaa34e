// SPDX-License-Identifier: GPL-3.0-or-later
#include "RequestArguments.h"

using namespace Qt::StringLiterals;

QStringList leadingArguments()
{
    return {u"--extractor-args"_s, u"youtube:player_client=tv_embedded"_s};
}

QStringList cookieArguments(const QString &browser)
{
    if (browser.isEmpty() || browser == u"none")
        return {};
    return {u"--cookies-from-browser"_s, browser};
}

QStringList videoArguments(const QString &url, const QString &cookiesBrowser)
{
    return leadingArguments() << cookieArguments(cookiesBrowser) << u"--dump-json"_s
                              << u"--no-playlist"_s << u"--no-warnings"_s << u"--quiet"_s << url;
}

QStringList playlistArguments(const QString &url, const QString &cookiesBrowser)
{
    return leadingArguments() << cookieArguments(cookiesBrowser) << u"--dump-json"_s
                              << u"--flat-playlist"_s << u"--yes-playlist"_s << u"--no-warnings"_s
                              << u"--quiet"_s << url;
}

QStringList searchArguments(const QString &query, int limit)
{
    return leadingArguments() << u"--dump-json"_s << u"--flat-playlist"_s << u"--no-warnings"_s
                              << u"--quiet"_s << u"ytsearch%1:"_s.arg(limit) + query;
}

QStringList streamArguments(const QString &videoURL)
{
    return leadingArguments() << u"-f"_s << u"best[ext=mp4]/best"_s << u"--get-url"_s
                              << u"--no-playlist"_s << u"--no-warnings"_s << u"--quiet"_s
                              << videoURL;
}

bool looksLikeOption(const QString &url)
{
    return url.startsWith(u'-');
}

QString optionURLMessage(const QString &url)
{
    return u"The URL “%1” begins with a hyphen, so it is not a URL"_s.arg(url);
}
