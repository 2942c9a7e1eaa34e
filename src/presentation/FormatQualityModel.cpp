// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormatQualityModel.h"

FormatQualityModel::FormatQualityModel(AppState &state)
    : StatePresenter(state)
{
    connect(&state, &AppState::selectedFormatChanged, this, &FormatQualityModel::changed);
    connect(&state, &AppState::selectedQualityChanged, this, &FormatQualityModel::changed);
}

QStringList FormatQualityModel::formats()
{
    QStringList labels;
    for (const MediaFormat format : allMediaFormats)
        labels.append(rawValue(format));
    return labels;
}

QStringList FormatQualityModel::qualities()
{
    QStringList labels;
    for (const QualityOption &option : QualityOption::mp4Options())
        labels.append(option.label);
    return labels;
}

int FormatQualityModel::selectedFormat() const
{
    return static_cast<int>(state().selectedFormat());
}

int FormatQualityModel::selectedQuality() const
{
    return static_cast<int>(QualityOption::mp4Options().indexOf(state().selectedQuality()));
}

bool FormatQualityModel::showsQualities() const
{
    return state().selectedFormat() == MediaFormat::mp4;
}

void FormatQualityModel::selectFormat(int index)
{
    const MediaFormat format = allMediaFormats.at(static_cast<size_t>(index));
    state().selectedFormat = format;
    state().selectedQuality = QualityOption::best(format);
}

void FormatQualityModel::selectQuality(int index)
{
    state().selectedQuality = QualityOption::mp4Options().at(index);
}
