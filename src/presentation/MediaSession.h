// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Inhibitor.h"
#include "MediaControl.h"
#include "PlayerPanelPresenter.h"

/// Shows the desktop what is playing, handles its media keys as the panel's buttons
/// would, and keeps the screen awake while a video plays.
class MediaSession : public QObject
{
    Q_OBJECT

public:
    /// All of them outlive the session.
    MediaSession(AppState &state, MediaControl &control, Inhibitor &inhibitor);

private:
    void connectRequests();
    void show();
    [[nodiscard]] NowPlaying nowPlaying() const;

    AppState &m_state;
    MediaControl &m_control;
    Inhibitor &m_inhibitor;
    PlayerPanelPresenter m_panel;
};
