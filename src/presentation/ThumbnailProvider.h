// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ThumbnailCache.h"

#include <QNetworkAccessManager>
#include <QQuickAsyncImageProvider>

#include <chrono>
#include <memory>
#include <optional>

/// Pictures from the network for image://thumbnail/<radius>/<address>, the radius
/// in device pixels and the address in base 64; cropped to the size asked for,
/// with rounded corners painted in. Only http and https, only the formats of
/// video sites, and only what a thumbnail may reasonably weigh and take;
/// everything else fails.
class ThumbnailProvider : public QQuickAsyncImageProvider
{
public:
    /// The time is for one picture, from being asked for to being there.
    explicit ThumbnailProvider(std::chrono::milliseconds patience = std::chrono::seconds(30));

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

private:
    QNetworkAccessManager &network();

    // Made with the first picture, since that takes its time. Main thread.
    std::optional<QNetworkAccessManager> m_network;
    std::chrono::milliseconds m_patience;
    std::shared_ptr<ThumbnailCache> m_cache;
};

/// The picture, scaled and cropped to fill the size, with rounded corners.
QImage roundedThumbnail(const QImage &picture, QSize size, double radius);
