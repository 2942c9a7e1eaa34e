// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCache>
#include <QMutex>
#include <QUrl>

/// This run's thumbnails in their original encoding, up to a number of bytes; the least
/// recently used go first. Decoded pictures would be needed again for every size. Any
/// thread.
class ThumbnailCache
{
public:
    explicit ThumbnailCache(qsizetype bytes)
        : m_contents(bytes)
    {
    }

    /// Nothing where there is none.
    [[nodiscard]] QByteArray find(const QUrl &url) const
    {
        const QMutexLocker lock(&m_mutex);
        const QByteArray *const content = m_contents.object(url);
        return content ? *content : QByteArray();
    }

    void insert(const QUrl &url, const QByteArray &content)
    {
        const QMutexLocker lock(&m_mutex);
        m_contents.insert(url, new QByteArray(content), content.size());
    }

    [[nodiscard]] qsizetype bytes() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_contents.totalCost();
    }

private:
    mutable QMutex m_mutex;
    QCache<QUrl, QByteArray> m_contents;
};
