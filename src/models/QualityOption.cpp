// SPDX-License-Identifier: GPL-3.0-or-later
#include "QualityOption.h"

using namespace Qt::StringLiterals;

namespace {

QualityOption videoOption(const QString &id, const QString &label, const QString &formatString)
{
    return {.id = id,
            .label = label,
            .formatString = formatString,
            .outputExt = u"mp4"_s,
            .isAudioOnly = false};
}

QualityOption cappedOption(int height, const QString &label)
{
    const QString cap = u"[height<=%1]"_s.arg(height);
    return videoOption(u"%1p"_s.arg(height), label, u"bestvideo%1+bestaudio/best%1"_s.arg(cap));
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
        videoOption(u"best"_s, u"Best"_s, u"bestvideo+bestaudio/best"_s),
        cappedOption(2160, u"4K"_s),
        cappedOption(1440, u"1440p"_s),
        cappedOption(1080, u"1080p"_s),
        cappedOption(720, u"720p"_s),
        cappedOption(480, u"480p"_s),
        cappedOption(360, u"360p"_s),
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
    return {.id = u"mp3"_s,
            .label = u"Best"_s,
            .formatString = u"bestaudio/best"_s,
            .outputExt = u"mp3"_s,
            .isAudioOnly = true};
}
