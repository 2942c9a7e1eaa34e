// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadItem.h"

DownloadItem::DownloadItem(const QString &itsURL)
    : id(QUuid::createUuid())
    , url(itsURL)
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
