// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseDownload.h"

QString downloadKey(const QString &resultID, bool isAudio)
{
    return resultID + (isAudio ? QStringLiteral("_mp3") : QStringLiteral("_mp4"));
}
