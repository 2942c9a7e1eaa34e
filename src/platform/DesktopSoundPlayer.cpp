// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopSoundPlayer.h"

#include <QLibrary>
#include <QThreadPool>

#include <canberra.h>

#include <mutex>

using namespace Qt::StringLiterals;

/// Loaded with the first sound: the library brings five others along, which would slow
/// down the start. Connecting to a sound server may take a while, so all of this runs on
/// a pool thread, one call at a time.
class DesktopSoundPlayer::Player
{
public:
    Player() = default;
    Q_DISABLE_COPY_MOVE(Player)

    ~Player()
    {
        if (m_context)
            resolved<decltype(&ca_context_destroy)>("ca_context_destroy")(m_context);
    }

    void play()
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_context && !connectToServer())
            return;
        const auto play = resolved<decltype(&ca_context_play)>("ca_context_play");
        play(m_context, 0, CA_PROP_EVENT_ID, "complete", CA_PROP_EVENT_DESCRIPTION,
             "Download complete", CA_PROP_APPLICATION_NAME, "Quillon", nullptr);
    }

private:
    bool connectToServer()
    {
        const auto create = resolved<decltype(&ca_context_create)>("ca_context_create");
        return create && create(&m_context) == CA_SUCCESS;
    }

    template<typename Function>
    Function resolved(const char *name)
    {
        return reinterpret_cast<Function>(m_library.resolve(name));
    }

    std::mutex m_mutex;
    QLibrary m_library{u"canberra"_s, 0};
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
