// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleModePresenter.h"

#include "RelativeDate.h"
#include "ShownText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

SingleModePresenter::SingleModePresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::fetchErrorChanged, &AppState::isFetchingChanged, &AppState::singleInfoChanged})
        connect(&state, signal, this, &SingleModePresenter::changed);
    connect(&state, &AppState::singleInfoChanged, this, &SingleModePresenter::infoChanged);
    connect(&state, &AppState::singleInfoChanged, this, &SingleModePresenter::knownChanged);
    connect(&state, &AppState::historyChanged, this, &SingleModePresenter::knownChanged);
    connect(&state, &AppState::downloadStatusChanged, this, &SingleModePresenter::knownChanged);
}

QString SingleModePresenter::error() const
{
    return shownText(state().fetchError().value_or(QString()));
}

QString SingleModePresenter::known() const
{
    const HistoryItem *const found = record();
    return found ? u"Downloaded "_s + relativeDate(found->date, ReferenceDate::now()) : QString();
}

QString SingleModePresenter::knownPath() const
{
    const HistoryItem *const found = record();
    return found ? found->savedPath.value_or(QString()) : QString();
}

const HistoryItem *SingleModePresenter::record() const
{
    const auto &info = state().singleInfo();
    // What is being downloaded, or has just been, is told by the download section.
    const bool isIdle = kindOf(state().downloadStatus()) == StatusKind::Idle;
    if (!isIdle || !info || info->isPlaylist || info->originalURL.isEmpty())
        return nullptr;
    const AppState::History &records = state().history();
    const auto found =
        std::find_if(records.begin(), records.end(), [&info](const HistoryItem &record) {
            return record.url == info->originalURL;
        });
    return found == records.end() ? nullptr : &*found;
}
