// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleModePresenter.h"

#include "ShownText.h"

SingleModePresenter::SingleModePresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::fetchErrorChanged, &AppState::isFetchingChanged, &AppState::singleInfoChanged})
        connect(&state, signal, this, &SingleModePresenter::changed);
    connect(&state, &AppState::singleInfoChanged, this, &SingleModePresenter::infoChanged);
}

QString SingleModePresenter::error() const
{
    return shownText(state().fetchError().value_or(QString()));
}
