// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchResult.h"

#include "Duration.h"

QString SearchResult::formattedDuration() const
{
    return ::formattedDuration(duration);
}

QString SearchResult::downloadKey(const QString &id, bool isAudio)
{
    return id + (isAudio ? QStringLiteral("_mp3") : QStringLiteral("_mp4"));
}
