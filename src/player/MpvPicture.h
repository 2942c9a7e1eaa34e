// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PicturePool.h"
#include "VideoShape.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

struct mpv_handle;
struct mpv_render_context;

/// Draws what mpv plays into images, on a thread of its own.
class MpvPicture
{
    Q_DISABLE_COPY_MOVE(MpvPicture)

public:
    struct Drawn
    {
        QImage picture;
        QSize proportions; ///< in which it is to be shown
    };

    /// `drawn` is called on that thread when there is a picture to take. The handle
    /// outlives this object. `isValid()` tells whether construction succeeded.
    MpvPicture(mpv_handle *mpv, std::function<void()> drawn);
    ~MpvPicture();

    [[nodiscard]] bool isValid() const { return m_context != nullptr; }

    // On the thread that made it:
    void setWish(const PictureWish &wish);
    /// Nothing is drawn before this is known.
    void setVideo(const VideoShape &video);
    void drawAgain();
    /// The newest one, which has replaced any that nobody has taken. Any thread.
    [[nodiscard]] Drawn take();
    /// Gives memory back to the system, now that nothing plays.
    void rest();

private:
    void chooseScaler();
    void run();
    [[nodiscard]] QImage draw(const QSize &size, bool isForGraphicsCard) const;
    void offer(const Drawn &drawn);
    void skip() const;
    void wake();

    mpv_handle *const m_mpv;
    mpv_render_context *m_context = nullptr;
    std::function<void()> m_drawn;
    const std::shared_ptr<PicturePool> m_pool = PicturePool::create();
    std::mutex m_mutex;
    std::condition_variable m_condition;
    PictureWish m_wish;
    VideoShape m_video;
    Drawn m_offered;
    bool m_hasNews = false;
    bool m_mustDraw = false;
    bool m_mustRest = false;
    bool m_isOver = false;
    std::thread m_thread; // last: it uses the members above
};
