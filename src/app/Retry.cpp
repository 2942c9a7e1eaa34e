// SPDX-License-Identifier: GPL-3.0-or-later
#include "Retry.h"

#include "AppState.h"

Retry::Retry(AppState &state)
    : m_state(state)
{
    connect(&state, &AppState::isFetchingChanged, this, [this] {
        if (m_state.isFetching())
            m_url = m_state.singleURL().trimmed();
    });
    connect(&state, &AppState::isBrowseSearchingChanged, this, [this] {
        if (m_state.isBrowseSearching())
            m_query = m_state.browseSearchQuery().trimmed();
    });
}

bool Retry::isPossible() const
{
    return hasFailedFetch() || hasFailedPlayback() || hasFailedSearch();
}

void Retry::repeat()
{
    if (hasFailedFetch()) {
        m_state.fetchSingleInfo();
    } else if (hasFailedPlayback()) {
        const SearchResult result = *m_state.nowPlaying();
        m_state.stopPlayback(); // as it is the chosen one, choosing it again would only stop it
        m_state.playBrowseResult(result);
    } else if (hasFailedSearch()) {
        m_state.searchYouTube();
    }
}

bool Retry::hasFailedFetch() const
{
    return m_state.mode() == AppMode::single && m_state.fetchError() && !m_state.isFetching()
        && m_state.singleURL().trimmed() == m_url;
}

bool Retry::hasFailedSearch() const
{
    return m_state.mode() == AppMode::browse && m_state.browseSearchError()
        && !m_state.isBrowseSearching() && m_state.browseSearchQuery().trimmed() == m_query;
}

bool Retry::hasFailedPlayback() const
{
    return m_state.mode() == AppMode::browse && m_state.nowPlaying() && m_state.playerError();
}
