// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleModeModel.h"

SingleModeModel::SingleModeModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::fetchErrorChanged, &AppState::isFetchingChanged, &AppState::singleInfoChanged,
          &AppState::selectedPlaylistItemsChanged})
        connect(&state, signal, this, &SingleModeModel::changed);
    connect(&state, &AppState::singleInfoChanged, this, &SingleModeModel::infoChanged);
}

QString SingleModeModel::selectionCount() const
{
    return QStringLiteral("%1 of %2 selected")
        .arg(state().selectedPlaylistItems().size())
        .arg(info().playlistEntries.size());
}
