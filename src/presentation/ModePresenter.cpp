// SPDX-License-Identifier: GPL-3.0-or-later
#include "ModePresenter.h"

ModePresenter::ModePresenter(AppState &state)
    : StatePresenter(state)
{
    connect(&state, &AppState::modeChanged, this, &ModePresenter::changed);
}

QStringList ModePresenter::labels()
{
    QStringList labels;
    for (const AppMode mode : allAppModes)
        labels.append(rawValue(mode));
    return labels;
}

int ModePresenter::currentIndex() const
{
    return static_cast<int>(state().mode());
}

void ModePresenter::setCurrentIndex(int index)
{
    state().mode = allAppModes.at(static_cast<size_t>(index));
}
