// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadItem.h"

DownloadItem::DownloadItem(const QString &address)
    : id(QUuid::createUuid())
    , url(address)
{
}

QString DownloadItem::title() const
{
    return info() ? info()->title : url;
}

QString DownloadItem::duration() const
{
    return info() ? info()->formattedDuration() : QString();
}
