// SPDX-License-Identifier: GPL-3.0-or-later
#include "ActionBarPresenter.h"

using namespace Qt::StringLiterals;

ActionBarPresenter::ActionBarPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::modeChanged, &AppState::isDownloadingChanged, &AppState::singleInfoChanged,
          &AppState::selectedFormatChanged, &AppState::selectedQualityChanged})
        connect(&state, signal, this, &ActionBarPresenter::changed);
}

void ActionBarPresenter::setSight(Sight sight)
{
    if (m_sight == sight)
        return;
    m_sight = sight;
    Q_EMIT changed();
}

ActionBarPresenter::Kind ActionBarPresenter::kind() const
{
    const bool isSingle = state().mode() == AppMode::single;
    if (isSingle && m_sight == Sight::Below)
        return Kind::Section;
    if (state().isDownloading() && (!isSingle || m_sight != Sight::Shown))
        return Kind::Run;
    if (state().mode() == AppMode::multi && m_sight == Sight::Above)
        return Kind::Queue;
    return Kind::None;
}

QString ActionBarPresenter::choice() const
{
    const QString format = rawValue(state().selectedFormat()).section(u' ', 0, 0);
    const QString quality = state().selectedQuality().label;
    return state().selectedFormat() == MediaFormat::mp4 ? u"%1 · %2"_s.arg(format, quality)
                                                        : format;
}

bool ActionBarPresenter::isElsewhere() const
{
    return state().mode() != AppMode::single || m_sight != Sight::None;
}

void ActionBarPresenter::lead()
{
    state().mode = AppMode::single;
}
