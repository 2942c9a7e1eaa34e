// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadArguments.h"

#include "RequestArguments.h"

using namespace Qt::StringLiterals;

namespace {

QStringList rateArguments(const QString &speedLimit)
{
    if (speedLimit.isEmpty() || speedLimit == u"0")
        return {};
    return {u"--limit-rate"_s, speedLimit};
}

QStringList formatArguments(const QualityOption &quality)
{
    const QStringList format{u"-f"_s, quality.formatString};
    if (quality.isAudioOnly) {
        return format
            + QStringList{u"-x"_s, u"--audio-format"_s, u"mp3"_s, u"--audio-quality"_s, u"0"_s};
    }
    return format
        + QStringList{u"--merge-output-format"_s, u"mp4"_s, u"--postprocessor-args"_s,
                      u"ffmpeg:-c:v copy -c:a aac -movflags +faststart"_s};
}

} // namespace

QStringList downloadArguments(const DownloadRequest &request)
{
    return leadingArguments() << cookieArguments(request.cookiesBrowser) << u"--no-playlist"_s
                              << u"--no-warnings"_s << u"--newline"_s
                              << rateArguments(request.speedLimit)
                              << formatArguments(request.quality) << u"-o"_s
                              << request.folder + u"/%(title)s.%(ext)s"_s << request.url;
}
