// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLKind.h"

bool namesVideo(const QString &url)
{
    return url.contains(u"v=") || url.contains(u"youtu.be/");
}

bool namesPlaylist(const QString &url)
{
    return url.contains(u"list=") || url.contains(u"/playlist");
}

bool namesVideoAndPlaylist(const QString &url)
{
    return namesVideo(url) && namesPlaylist(url);
}

bool fetchesPlaylist(const QString &url, bool fetchAsPlaylist)
{
    return namesPlaylist(url) && (!namesVideo(url) || fetchAsPlaylist);
}
