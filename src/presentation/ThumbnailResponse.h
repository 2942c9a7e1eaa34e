// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PictureSource.h"
#include "ThumbnailCache.h"

#include <QImage>
#include <QNetworkReply>
#include <QPointer>
#include <QQuickImageResponse>

#include <memory>

class QNetworkAccessManager;

/// One thumbnail on its way: from the cache, or loaded on the main thread and
/// decoded on a pool thread.
class ThumbnailResponse : public QQuickImageResponse
{
    Q_OBJECT

public:
    ThumbnailResponse(QSize size, double radius, std::shared_ptr<ThumbnailCache> cache);
    ~ThumbnailResponse() override;

    void load(QNetworkAccessManager &network, const QUrl &url, const PictureSource &source);

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override;
    [[nodiscard]] QString errorString() const override { return m_error; }
    void cancel() override;

private:
    void handleFinished();
    void decodeElsewhere(const QByteArray &bytes);
    void decode(const QByteArray &bytes);
    void fail(const QString &error);

    const QSize m_size;
    const double m_radius;
    const std::shared_ptr<ThumbnailCache> m_cache;
    QUrl m_url;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_bytes;
    QImage m_image;
    QString m_error;
};
