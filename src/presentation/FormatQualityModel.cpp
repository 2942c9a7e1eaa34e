// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormatQualityModel.h"

QStringList FormatQualityModel::formats()
{
    QStringList labels;
    for (const MediaFormat format : allMediaFormats)
        labels.append(rawValue(format));
    return labels;
}

QStringList FormatQualityModel::qualities() const
{
    QStringList labels;
    const QList<QualityOption> offered = options();
    for (const QualityOption &option : offered)
        labels.append(option.label);
    return labels;
}

int FormatQualityModel::selectedFormat() const
{
    return static_cast<int>(format());
}

int FormatQualityModel::selectedQuality() const
{
    return static_cast<int>(options().indexOf(quality()));
}

bool FormatQualityModel::showsQualities() const
{
    return !options().isEmpty();
}

void FormatQualityModel::selectFormat(int index)
{
    const MediaFormat format = allMediaFormats.at(static_cast<size_t>(index));
    setFormat(format);
    setQuality(QualityOption::best(format));
}

void FormatQualityModel::selectQuality(int index)
{
    setQuality(options().at(index));
}

SingleFormatQualityModel::SingleFormatQualityModel(AppState &state)
    : FormatQualityModel(state)
{
    connect(&state, &AppState::selectedFormatChanged, this, &FormatQualityModel::changed);
    connect(&state, &AppState::selectedQualityChanged, this, &FormatQualityModel::changed);
}

MediaFormat SingleFormatQualityModel::format() const
{
    return state().selectedFormat;
}

QualityOption SingleFormatQualityModel::quality() const
{
    return state().selectedQuality;
}

QList<QualityOption> SingleFormatQualityModel::options() const
{
    return format() == MediaFormat::mp4 ? QualityOption::mp4Options() : QList<QualityOption>();
}

void SingleFormatQualityModel::setFormat(MediaFormat format)
{
    state().selectedFormat = format;
}

void SingleFormatQualityModel::setQuality(const QualityOption &quality)
{
    state().selectedQuality = quality;
}

QueueFormatQualityModel::QueueFormatQualityModel(AppState &state)
    : FormatQualityModel(state)
{
    connect(&state, &AppState::multiFormatChanged, this, &FormatQualityModel::changed);
    connect(&state, &AppState::multiQualityChanged, this, &FormatQualityModel::changed);
}

MediaFormat QueueFormatQualityModel::format() const
{
    return state().multiFormat;
}

QualityOption QueueFormatQualityModel::quality() const
{
    return state().multiQuality;
}

QList<QualityOption> QueueFormatQualityModel::options() const
{
    return format() == MediaFormat::mp4 ? QualityOption::queueOptions()
                                        : QList{QualityOption::best(MediaFormat::mp3)};
}

void QueueFormatQualityModel::setFormat(MediaFormat format)
{
    state().multiFormat = format;
}

void QueueFormatQualityModel::setQuality(const QualityOption &quality)
{
    state().multiQuality = quality;
}
