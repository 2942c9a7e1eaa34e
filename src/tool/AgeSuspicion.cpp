// SPDX-License-Identifier: GPL-3.0-or-later
#include "AgeSuspicion.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

bool ageMayExplain(const QString &failure)
{
    // As worded by the tool, its Python and ffmpeg.
    static const QStringList otherCauses{
        // The video
        u"private video"_s,
        u"video is private"_s,
        u"has been removed"_s,
        u"video unavailable"_s,
        u"video is not available"_s,
        u"members-only"_s,
        u"join this channel"_s,
        u"confirm your age"_s,
        u"account associated with this video has been terminated"_s,
        u"premieres in"_s,
        u"live event will begin"_s,
        u"does not exist"_s,
        u"is not a valid url"_s,
        u"begins with a hyphen"_s,
        u"http error 404"_s,
        u"http error 429"_s,
        // The network
        u"name resolution"_s,
        u"name or service not known"_s,
        u"failed to resolve"_s,
        u"no address associated with hostname"_s,
        u"network is unreachable"_s,
        u"no route to host"_s,
        u"connection refused"_s,
        u"connection reset"_s,
        u"timed out"_s,
        u"certificate verify failed"_s,
        u"unable to connect to proxy"_s,
        // The machine
        u"no space left"_s,
        u"disk quota exceeded"_s,
        u"file too large"_s,
        u"permission denied"_s,
        u"read-only file system"_s,
        u"no such file or directory"_s,
        u"file name too long"_s,
        u"ffmpeg is not installed"_s,
        u"ffmpeg not found"_s,
        u"cookies database"_s,
        u"failed to decrypt"_s,
    };
    return std::none_of(otherCauses.begin(), otherCauses.end(), [&](const QString &cause) {
        return failure.contains(cause, Qt::CaseInsensitive);
    });
}
