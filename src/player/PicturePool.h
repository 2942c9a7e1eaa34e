// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <memory>
#include <mutex>
#include <vector>

/// Memory for pictures, used again once nobody shows the picture any more. Any thread.
class PicturePool : public std::enable_shared_from_this<PicturePool>
{
    Q_DISABLE_COPY_MOVE(PicturePool)

public:
    static std::shared_ptr<PicturePool> create();

    /// A picture of any content, four bytes a pixel, with rows as mpv likes them; null if
    /// there is no memory for it. It may outlive the pool's other owners.
    [[nodiscard]] QImage take(const QSize &size, QImage::Format format);
    /// Frees what nobody shows.
    void clear();

private:
    struct Release
    {
        void operator()(uchar *memory) const;
    };
    using Memory = std::unique_ptr<uchar, Release>;
    struct Loan;

    PicturePool() = default;
    [[nodiscard]] Memory takeMemory(size_t bytes);
    void giveBack(Memory memory, size_t bytes);

    std::mutex m_mutex;
    std::vector<Memory> m_free; // each of m_bytes
    size_t m_bytes = 0;
};
