// SPDX-License-Identifier: GPL-3.0-or-later
#include "VideoInfo.h"

#include "Duration.h"
#include "ShownText.h"

QString VideoInfo::formattedDuration() const
{
    return ::formattedDuration(duration);
}

QString VideoInfo::shownTitle() const
{
    return shownText(title);
}

QString VideoInfo::shownUploader() const
{
    return shownLine(uploader);
}

// Here, where the type is complete: it holds a list of itself.
bool VideoInfo::operator==(const VideoInfo &other) const = default;
