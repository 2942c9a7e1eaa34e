// SPDX-License-Identifier: GPL-3.0-or-later
#include "QualityOption.h"

namespace {

QualityOption videoOption(const QString &id, const QString &label, const QString &formatString)
{
    return {.id = id,
            .label = label,
            .formatString = formatString,
            .outputExt = QStringLiteral("mp4"),
            .isAudioOnly = false};
}

QualityOption cappedOption(int height, const QString &label)
{
    const QString cap = QStringLiteral("[height<=%1]").arg(height);
    return videoOption(QStringLiteral("%1p").arg(height), label,
                       QStringLiteral("bestvideo%1+bestaudio/best%1").arg(cap));
}

QList<QualityOption> shortened(QList<QualityOption> options)
{
    options.removeIf(
        [](const QualityOption &option) { return option.id == u"2160p" || option.id == u"1440p"; });
    return options;
}

} // namespace

const QList<QualityOption> &QualityOption::mp4Options()
{
    static const QList<QualityOption> options{
        videoOption(QStringLiteral("best"), QStringLiteral("Best"),
                    QStringLiteral("bestvideo+bestaudio/best")),
        cappedOption(2160, QStringLiteral("4K")),
        cappedOption(1440, QStringLiteral("1440p")),
        cappedOption(1080, QStringLiteral("1080p")),
        cappedOption(720, QStringLiteral("720p")),
        cappedOption(480, QStringLiteral("480p")),
        cappedOption(360, QStringLiteral("360p")),
    };
    return options;
}

const QList<QualityOption> &QualityOption::queueOptions()
{
    static const QList<QualityOption> options = shortened(mp4Options());
    return options;
}

QualityOption QualityOption::best(MediaFormat format)
{
    if (format == MediaFormat::mp4)
        return mp4Options().first();
    return {.id = QStringLiteral("mp3"),
            .label = QStringLiteral("Best"),
            .formatString = QStringLiteral("bestaudio/best"),
            .outputExt = QStringLiteral("mp3"),
            .isAudioOnly = true};
}
