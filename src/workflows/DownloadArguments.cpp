// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadArguments.h"

#include "RequestArguments.h"

namespace {

QStringList rateArguments(const QString &speedLimit)
{
    if (speedLimit.isEmpty() || speedLimit == u"0")
        return {};
    return {QStringLiteral("--limit-rate"), speedLimit};
}

QStringList formatArguments(const QualityOption &quality)
{
    const QStringList format{QStringLiteral("-f"), quality.formatString};
    if (quality.isAudioOnly) {
        return format
            + QStringList{QStringLiteral("-x"), QStringLiteral("--audio-format"),
                          QStringLiteral("mp3"), QStringLiteral("--audio-quality"),
                          QStringLiteral("0")};
    }
    return format
        + QStringList{QStringLiteral("--merge-output-format"), QStringLiteral("mp4"),
                      QStringLiteral("--postprocessor-args"),
                      QStringLiteral("ffmpeg:-c:v copy -c:a aac -movflags +faststart")};
}

} // namespace

QStringList downloadArguments(const DownloadRequest &request)
{
    return leadingArguments() << cookieArguments(request.cookiesBrowser)
                              << QStringLiteral("--no-playlist") << QStringLiteral("--no-warnings")
                              << QStringLiteral("--newline") << rateArguments(request.speedLimit)
                              << formatArguments(request.quality) << QStringLiteral("-o")
                              << request.folder + QStringLiteral("/%(title)s.%(ext)s")
                              << request.address;
}
