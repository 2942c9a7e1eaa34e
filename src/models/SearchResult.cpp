// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchResult.h"

#include "Duration.h"

using namespace Qt::StringLiterals;

QString SearchResult::formattedDuration() const
{
    return ::formattedDuration(duration);
}

QString SearchResult::downloadKey(const QString &id, bool isAudio)
{
    return id + (isAudio ? u"_mp3"_s : u"_mp4"_s);
}
