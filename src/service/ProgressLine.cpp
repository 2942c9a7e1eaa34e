// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgressLine.h"

#include "ToolText.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ProgressLine {

namespace {

struct Expressions
{
    QRegularExpression progress{
        uR"(\[download\]\s+([\d.]+)%\s+of\s+\S+\s+at\s+(\S+)\s+ETA\s+(\S+))"_s};
    QRegularExpression destination{uR"(^\[download\] Destination: (.+)$)"_s};
    QRegularExpression merger{uR"re(\[Merger\] Merging formats into "(.+)")re"_s};
    QRegularExpression audioDestination{uR"(^\[ExtractAudio\] Destination: (.+)$)"_s};
    QRegularExpression processing{uR"(\[Merger\]|\[ffmpeg\]|\[ExtractAudio\])"_s};
    QRegularExpression alreadyDownloaded{uR"(\[download\] (.+) has already been downloaded)"_s};
};

Progress progressFrom(const QRegularExpressionMatch &match)
{
    const QString eta = match.captured(3);
    const double percent = match.captured(1).toDouble();
    return {.fraction = std::isfinite(percent) ? percent / 100 : 0,
            .speed = match.captured(2),
            .eta = eta == u"Unknown" ? u"--"_s : eta};
}

} // namespace

Event parse(const QString &line)
{
    static const Expressions expressions;

    if (const auto match = expressions.progress.match(line); match.hasMatch())
        return progressFrom(match);
    if (const auto match = expressions.destination.match(line); match.hasMatch())
        return Destination{trimmedOfBlanks(match.captured(1))};
    if (const auto match = expressions.merger.match(line); match.hasMatch())
        return Destination{trimmedOfBlanks(match.captured(1))};
    if (const auto match = expressions.audioDestination.match(line); match.hasMatch())
        return AudioDestination{trimmedOfBlanks(match.captured(1))};
    if (expressions.processing.match(line).hasMatch())
        return Processing{};
    if (const auto match = expressions.alreadyDownloaded.match(line); match.hasMatch())
        return AlreadyDownloaded{trimmedOfBlanks(match.captured(1))};
    return Nothing{};
}

} // namespace ProgressLine
