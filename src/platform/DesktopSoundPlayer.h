// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SoundPlayer.h"

#include <memory>

/// Event sounds of the user's sound theme. Silent without a theme or a sound
/// server.
class DesktopSoundPlayer : public SoundPlayer
{
public:
    DesktopSoundPlayer();
    ~DesktopSoundPlayer() override;

    void playCompletion() override;

private:
    class Player;
    std::shared_ptr<Player> m_player;
};
