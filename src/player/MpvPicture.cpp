// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvPicture.h"

#include <mpv/client.h>
#include <mpv/render.h>

#include <algorithm>
#include <array>
#include <utility>

MpvPicture::MpvPicture(mpv_handle *mpv, std::function<void(const QImage &)> taken)
    : m_taken(std::move(taken))
{
    std::array<char, 3> software{MPV_RENDER_API_TYPE_SW};
    std::array<mpv_render_param, 2> parameters{
        mpv_render_param{MPV_RENDER_PARAM_API_TYPE, software.data()},
        mpv_render_param{MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv_render_context_create(&m_context, mpv, parameters.data()) < 0) {
        m_context = nullptr;
        return;
    }
    mpv_render_context_set_update_callback(
        m_context, [](void *self) { static_cast<MpvPicture *>(self)->wake(); }, this);
    m_thread = std::thread([this] { run(); });
}

MpvPicture::~MpvPicture()
{
    if (!m_context)
        return;
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    {
        const std::scoped_lock lock(m_mutex);
        m_isOver = true;
    }
    m_condition.notify_one();
    m_thread.join();
    mpv_render_context_free(m_context);
}

void MpvPicture::setSize(const QSize &size)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_size = size;
        m_mustDraw = true;
    }
    m_condition.notify_one();
}

void MpvPicture::drawAgain()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_mustDraw = true;
    }
    m_condition.notify_one();
}

void MpvPicture::wake()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_hasNews = true;
    }
    m_condition.notify_one();
}

void MpvPicture::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_condition.wait(lock, [this] { return m_isOver || m_hasNews || m_mustDraw; });
        if (m_isOver)
            return;
        const QSize size = m_size;
        const bool hasNews = std::exchange(m_hasNews, false);
        const bool mustDraw = std::exchange(m_mustDraw, false);
        lock.unlock();
        const bool hasFrame =
            hasNews && (mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME) != 0;
        if (hasFrame || mustDraw) {
            if (const QImage picture = draw(size); !picture.isNull())
                m_taken(picture);
        }
        lock.lock();
    }
}

QImage MpvPicture::draw(const QSize &size) const
{
    constexpr size_t alignment = 64; // the format that is fastest for mpv
    const size_t rowBytes =
        (static_cast<size_t>(size.width()) * 4 + alignment - 1) & ~(alignment - 1);
    QImage image(static_cast<int>(rowBytes / 4), size.height(), QImage::Format_RGB32);
    if (image.isNull())
        return {};
    std::array<int, 2> dimensions{size.width(), size.height()};
    size_t stride = rowBytes;
    std::array<char, 5> format{"bgr0"};
    std::array<mpv_render_param, 5> parameters{
        mpv_render_param{MPV_RENDER_PARAM_SW_SIZE, dimensions.data()},
        mpv_render_param{MPV_RENDER_PARAM_SW_FORMAT, format.data()},
        mpv_render_param{MPV_RENDER_PARAM_SW_STRIDE, &stride},
        mpv_render_param{MPV_RENDER_PARAM_SW_POINTER, image.bits()},
        mpv_render_param{MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv_render_context_render(m_context, parameters.data()) < 0)
        return {};
    // The fourth byte comes as 0, which reads as transparent.
    for (int row = 0; row < image.height(); ++row) {
        auto *const pixels = reinterpret_cast<QRgb *>(image.scanLine(row));
        std::transform(pixels, pixels + size.width(), pixels,
                       [](QRgb pixel) { return pixel | 0xff000000; });
    }
    return image.width() == size.width() ? image : image.copy({QPoint(), size});
}
