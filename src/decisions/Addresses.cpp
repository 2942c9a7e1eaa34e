// SPDX-License-Identifier: GPL-3.0-or-later
#include "Addresses.h"

bool namesVideo(const QString &address)
{
    return address.contains(u"v=") || address.contains(u"youtu.be/");
}

bool namesPlaylist(const QString &address)
{
    return address.contains(u"list=") || address.contains(u"/playlist");
}

bool isMixedAddress(const QString &address)
{
    return namesVideo(address) && namesPlaylist(address);
}

bool fetchesPlaylist(const QString &address, bool fetchAsPlaylist)
{
    return namesPlaylist(address) && (!namesVideo(address) || fetchAsPlaylist);
}
