// SPDX-License-Identifier: GPL-3.0-or-later
#include "ModeModel.h"

ModeModel::ModeModel(AppState &state)
    : StatePresenter(state)
{
    connect(&state, &AppState::modeChanged, this, &ModeModel::changed);
}

QStringList ModeModel::labels()
{
    QStringList labels;
    for (const AppMode mode : allAppModes)
        labels.append(rawValue(mode));
    return labels;
}

int ModeModel::currentIndex() const
{
    return static_cast<int>(state().mode());
}

void ModeModel::setCurrentIndex(int index)
{
    state().mode = allAppModes.at(static_cast<size_t>(index));
}
