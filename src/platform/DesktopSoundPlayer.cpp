// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopSoundPlayer.h"

#include <QThreadPool>

#include <canberra.h>

#include <mutex>

/// Connecting to a sound server may take its time, so all of this runs on a
/// pool thread, one call at a time.
class DesktopSoundPlayer::Player
{
public:
    Player() = default;
    Q_DISABLE_COPY_MOVE(Player)

    ~Player()
    {
        if (m_context)
            ca_context_destroy(m_context);
    }

    void play()
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_context && ca_context_create(&m_context) != CA_SUCCESS)
            return;
        ca_context_play(m_context, 0, CA_PROP_EVENT_ID, "complete", CA_PROP_EVENT_DESCRIPTION,
                        "Download complete", CA_PROP_APPLICATION_NAME, "Quillon", nullptr);
    }

private:
    std::mutex m_mutex;
    ca_context *m_context = nullptr;
};

DesktopSoundPlayer::DesktopSoundPlayer()
    : m_player(std::make_shared<Player>())
{
}

DesktopSoundPlayer::~DesktopSoundPlayer() = default;

void DesktopSoundPlayer::playCompletion()
{
    QThreadPool::globalInstance()->start([player = m_player] { player->play(); });
}
