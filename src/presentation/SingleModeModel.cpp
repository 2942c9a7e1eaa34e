// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleModeModel.h"

#include "ShownText.h"

SingleModeModel::SingleModeModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::fetchErrorChanged, &AppState::isFetchingChanged, &AppState::singleInfoChanged})
        connect(&state, signal, this, &SingleModeModel::changed);
    connect(&state, &AppState::singleInfoChanged, this, &SingleModeModel::infoChanged);
}

QString SingleModeModel::error() const
{
    return shownText(state().fetchError().value_or(QString()));
}
