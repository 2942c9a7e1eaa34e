// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormatQualityPresenter.h"

QStringList FormatQualityPresenter::formats()
{
    QStringList labels;
    for (const MediaFormat format : allMediaFormats)
        labels.append(rawValue(format));
    return labels;
}

QStringList FormatQualityPresenter::qualities() const
{
    QStringList labels;
    const QList<QualityOption> offered = options();
    for (const QualityOption &option : offered)
        labels.append(option.label);
    return labels;
}

int FormatQualityPresenter::selectedFormat() const
{
    return static_cast<int>(format());
}

int FormatQualityPresenter::selectedQuality() const
{
    return static_cast<int>(options().indexOf(quality()));
}

bool FormatQualityPresenter::showsQualities() const
{
    return !options().isEmpty();
}

void FormatQualityPresenter::selectFormat(int index)
{
    const MediaFormat format = allMediaFormats.at(static_cast<size_t>(index));
    setFormat(format);
    setQuality(QualityOption::best(format));
}

void FormatQualityPresenter::selectQuality(int index)
{
    setQuality(options().at(index));
}

SingleFormatQualityPresenter::SingleFormatQualityPresenter(AppState &state)
    : FormatQualityPresenter(state)
{
    connect(&state, &AppState::selectedFormatChanged, this, &FormatQualityPresenter::changed);
    connect(&state, &AppState::selectedQualityChanged, this, &FormatQualityPresenter::changed);
}

MediaFormat SingleFormatQualityPresenter::format() const
{
    return state().selectedFormat();
}

QualityOption SingleFormatQualityPresenter::quality() const
{
    return state().selectedQuality();
}

QList<QualityOption> SingleFormatQualityPresenter::options() const
{
    return format() == MediaFormat::mp4 ? QualityOption::mp4Options() : QList<QualityOption>();
}

void SingleFormatQualityPresenter::setFormat(MediaFormat format)
{
    state().selectedFormat = format;
}

void SingleFormatQualityPresenter::setQuality(const QualityOption &quality)
{
    state().selectedQuality = quality;
}

QueueFormatQualityPresenter::QueueFormatQualityPresenter(AppState &state)
    : FormatQualityPresenter(state)
{
    connect(&state, &AppState::multiFormatChanged, this, &FormatQualityPresenter::changed);
    connect(&state, &AppState::multiQualityChanged, this, &FormatQualityPresenter::changed);
}

MediaFormat QueueFormatQualityPresenter::format() const
{
    return state().multiFormat();
}

QualityOption QueueFormatQualityPresenter::quality() const
{
    return state().multiQuality();
}

QList<QualityOption> QueueFormatQualityPresenter::options() const
{
    return format() == MediaFormat::mp4 ? QualityOption::queueOptions()
                                        : QList{QualityOption::best(MediaFormat::mp3)};
}

void QueueFormatQualityPresenter::setFormat(MediaFormat format)
{
    state().multiFormat = format;
}

void QueueFormatQualityPresenter::setQuality(const QualityOption &quality)
{
    state().multiQuality = quality;
}
