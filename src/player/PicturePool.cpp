// SPDX-License-Identifier: GPL-3.0-or-later
#include "PicturePool.h"

#include <new>
#include <utility>

namespace {

constexpr size_t alignment = 64; // of rows, in bytes: the fastest for mpv

// One is drawn, one is on its way to the screen, one is there.
constexpr size_t most = 3;

} // namespace

struct PicturePool::Loan
{
    std::shared_ptr<PicturePool> pool;
    Memory memory;
    size_t bytes;
};

std::shared_ptr<PicturePool> PicturePool::create()
{
    return std::shared_ptr<PicturePool>(new PicturePool);
}

void PicturePool::Release::operator()(uchar *memory) const
{
    ::operator delete(memory, std::align_val_t(alignment));
}

QImage PicturePool::take(const QSize &size, QImage::Format format)
{
    const size_t rowBytes =
        (static_cast<size_t>(size.width()) * 4 + alignment - 1) & ~(alignment - 1);
    const size_t bytes = rowBytes * static_cast<size_t>(size.height());
    Memory memory = takeMemory(bytes);
    if (!memory)
        return {};
    uchar *const pixels = memory.get();
    auto loan = std::make_unique<Loan>(Loan{shared_from_this(), std::move(memory), bytes});
    return {pixels,
            size.width(),
            size.height(),
            static_cast<qsizetype>(rowBytes),
            format,
            [](void *ended) {
                const std::unique_ptr<Loan> over(static_cast<Loan *>(ended));
                over->pool->giveBack(std::move(over->memory), over->bytes);
            },
            loan.release()};
}

PicturePool::Memory PicturePool::takeMemory(size_t bytes)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (bytes != m_bytes)
            m_free.clear();
        m_bytes = bytes;
        if (!m_free.empty()) {
            Memory memory = std::move(m_free.back());
            m_free.pop_back();
            return memory;
        }
    }
    return Memory(
        static_cast<uchar *>(::operator new(bytes, std::align_val_t(alignment), std::nothrow)));
}

void PicturePool::giveBack(Memory memory, size_t bytes)
{
    const std::scoped_lock lock(m_mutex);
    if (bytes == m_bytes && m_free.size() < most)
        m_free.push_back(std::move(memory));
}

void PicturePool::clear()
{
    const std::scoped_lock lock(m_mutex);
    m_free.clear();
    m_bytes = 0; // nor is kept what is given back from now on
}
