// SPDX-License-Identifier: GPL-3.0-or-later
#include "AgeSuspicion.h"

#include <QStringList>

#include <algorithm>

bool ageMayExplain(const QString &failure)
{
    // As the tool, its Python and ffmpeg word them.
    static const QStringList otherCauses{
        // The video
        QStringLiteral("private video"),
        QStringLiteral("video is private"),
        QStringLiteral("has been removed"),
        QStringLiteral("video unavailable"),
        QStringLiteral("video is not available"),
        QStringLiteral("members-only"),
        QStringLiteral("join this channel"),
        QStringLiteral("confirm your age"),
        QStringLiteral("account associated with this video has been terminated"),
        QStringLiteral("premieres in"),
        QStringLiteral("live event will begin"),
        QStringLiteral("does not exist"),
        QStringLiteral("is not a valid url"),
        QStringLiteral("begins with a hyphen"),
        QStringLiteral("http error 404"),
        QStringLiteral("http error 429"),
        // The network
        QStringLiteral("name resolution"),
        QStringLiteral("name or service not known"),
        QStringLiteral("failed to resolve"),
        QStringLiteral("no address associated with hostname"),
        QStringLiteral("network is unreachable"),
        QStringLiteral("no route to host"),
        QStringLiteral("connection refused"),
        QStringLiteral("connection reset"),
        QStringLiteral("timed out"),
        QStringLiteral("certificate verify failed"),
        QStringLiteral("unable to connect to proxy"),
        // The machine
        QStringLiteral("no space left"),
        QStringLiteral("disk quota exceeded"),
        QStringLiteral("file too large"),
        QStringLiteral("permission denied"),
        QStringLiteral("read-only file system"),
        QStringLiteral("no such file or directory"),
        QStringLiteral("file name too long"),
        QStringLiteral("ffmpeg is not installed"),
        QStringLiteral("ffmpeg not found"),
        QStringLiteral("cookies database"),
        QStringLiteral("failed to decrypt"),
    };
    return std::none_of(otherCauses.begin(), otherCauses.end(), [&](const QString &cause) {
        return failure.contains(cause, Qt::CaseInsensitive);
    });
}
