// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvPicture.h"

#include <mpv/client.h>
#include <mpv/render.h>

#include <malloc.h>

#include <array>
#include <utility>

MpvPicture::MpvPicture(mpv_handle *mpv, std::function<void()> drawn)
    : m_mpv(mpv)
    , m_drawn(std::move(drawn))
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

void MpvPicture::setWish(const PictureWish &wish)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_wish = wish;
    }
    drawAgain();
    chooseScaler();
}

void MpvPicture::setVideo(const VideoShape &video)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_video = video;
    }
    drawAgain();
    chooseScaler();
}

// zimg makes pictures smaller at less cost than swscale, which does all the rest at half
// the cost of zimg.
void MpvPicture::chooseScaler()
{
    int isReduced = drawnSize(m_video, m_wish).width() < m_video.pixels.width() ? 1 : 0;
    mpv_set_property_async(m_mpv, 0, "sws-allow-zimg", MPV_FORMAT_FLAG, &isReduced);
}

void MpvPicture::drawAgain()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_mustDraw = true;
    }
    m_condition.notify_one();
}

void MpvPicture::rest()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_mustRest = true;
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
        m_condition.wait(lock,
                         [this] { return m_isOver || m_hasNews || m_mustDraw || m_mustRest; });
        if (m_isOver)
            return;
        const PictureWish wish = m_wish;
        const VideoShape video = m_video;
        const bool hasNews = std::exchange(m_hasNews, false);
        const bool mustDraw = std::exchange(m_mustDraw, false);
        const bool mustRest = std::exchange(m_mustRest, false);
        lock.unlock();
        if (mustRest) {
            m_pool->clear();
            malloc_trim(0); // also what the decoder has freed; that takes milliseconds
        }
        const bool hasFrame =
            hasNews && (mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME) != 0;
        const QSize size = drawnSize(video, wish);
        if (size.isEmpty() && hasFrame)
            skip();
        else if (!size.isEmpty() && (hasFrame || mustDraw))
            offer({draw(size, wish.isForGraphicsCard), video.proportions});
        lock.lock();
    }
}

QImage MpvPicture::draw(const QSize &size, bool isForGraphicsCard) const
{
    // Each in its own order of the colours, so that nobody has to change it.
    std::array<char, 5> format = isForGraphicsCard ? std::array{'r', 'g', 'b', 'a', '\0'}
                                                   : std::array{'b', 'g', 'r', 'a', '\0'};
    QImage image =
        m_pool->take(size, isForGraphicsCard ? QImage::Format_RGBX8888 : QImage::Format_RGB32);
    if (image.isNull())
        return {};
    std::array<int, 2> dimensions{size.width(), size.height()};
    auto stride = static_cast<size_t>(image.bytesPerLine());
    std::array<mpv_render_param, 5> parameters{
        mpv_render_param{MPV_RENDER_PARAM_SW_SIZE, dimensions.data()},
        mpv_render_param{MPV_RENDER_PARAM_SW_FORMAT, format.data()},
        mpv_render_param{MPV_RENDER_PARAM_SW_STRIDE, &stride},
        mpv_render_param{MPV_RENDER_PARAM_SW_POINTER, image.bits()},
        mpv_render_param{MPV_RENDER_PARAM_INVALID, nullptr}};
    const bool isDrawn = mpv_render_context_render(m_context, parameters.data()) >= 0;
    return isDrawn ? image : QImage();
}

void MpvPicture::offer(const Drawn &drawn)
{
    if (drawn.picture.isNull())
        return;
    bool isWaiting = false;
    {
        const std::scoped_lock lock(m_mutex);
        isWaiting = !m_offered.picture.isNull();
        m_offered = drawn;
    }
    if (!isWaiting)
        m_drawn();
}

MpvPicture::Drawn MpvPicture::take()
{
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_offered, {});
}

// Otherwise mpv would wait for a while that somebody takes its picture.
void MpvPicture::skip() const
{
    int yes = 1;
    std::array<mpv_render_param, 2> parameters{
        mpv_render_param{MPV_RENDER_PARAM_SKIP_RENDERING, &yes},
        mpv_render_param{MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context, parameters.data());
}
