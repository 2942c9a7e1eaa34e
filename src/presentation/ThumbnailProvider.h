// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PictureSource.h"
#include "ThumbnailCache.h"

#include <QNetworkAccessManager>
#include <QQuickAsyncImageProvider>

#include <memory>
#include <optional>

/// Pictures from the network for image://thumbnail/<radius>/<URL>, with the radius in
/// device pixels and the URL in base 64; cropped to the requested size, with rounded
/// corners painted in. Sources, formats, weight and time are limited to what thumbnails
/// need; everything else fails.
class ThumbnailProvider : public QQuickAsyncImageProvider
{
public:
    explicit ThumbnailProvider(PictureSource source = {});

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

private:
    QNetworkAccessManager &network();

    // Made with the first picture, since that takes a while. Main thread.
    std::optional<QNetworkAccessManager> m_network;
    const PictureSource m_source;
    std::shared_ptr<ThumbnailCache> m_cache;
};

/// The picture, scaled and cropped to fill the size, with rounded corners.
QImage roundedThumbnail(const QImage &picture, QSize size, double radius);
