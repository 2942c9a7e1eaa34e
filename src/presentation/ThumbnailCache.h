// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCache>
#include <QImage>
#include <QMutex>

/// Thumbnails of this run, as they are shown, up to a number of bytes; the least
/// recently wanted go first. Any thread.
class ThumbnailCache
{
public:
    explicit ThumbnailCache(qsizetype bytes)
        : m_images(bytes)
    {
    }

    /// A null image where there is none.
    [[nodiscard]] QImage find(const QString &key) const
    {
        const QMutexLocker lock(&m_mutex);
        const QImage *const image = m_images.object(key);
        return image ? *image : QImage();
    }

    void insert(const QString &key, const QImage &image)
    {
        const QMutexLocker lock(&m_mutex);
        m_images.insert(key, new QImage(image), image.sizeInBytes());
    }

    [[nodiscard]] qsizetype bytes() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_images.totalCost();
    }

private:
    mutable QMutex m_mutex;
    QCache<QString, QImage> m_images;
};
