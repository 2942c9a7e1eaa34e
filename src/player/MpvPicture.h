// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

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
    /// `taken` is called on that thread with each new picture. The handle outlives this
    /// object. `isValid()` tells whether construction succeeded.
    MpvPicture(mpv_handle *mpv, std::function<void(const QImage &)> taken);
    ~MpvPicture();

    [[nodiscard]] bool isValid() const { return m_context != nullptr; }

    /// In pixels. Draws anew.
    void setSize(const QSize &size);
    void drawAgain();

private:
    void run();
    QImage draw(const QSize &size) const;
    void wake();

    mpv_render_context *m_context = nullptr;
    std::function<void(const QImage &)> m_taken;
    std::mutex m_mutex;
    std::condition_variable m_condition;
    QSize m_size{640, 360};
    bool m_hasNews = false;
    bool m_mustDraw = false;
    bool m_isOver = false;
    std::thread m_thread; // last: it uses the members above
};
