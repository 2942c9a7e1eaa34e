// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QNetworkAccessManager>
#include <QQuickAsyncImageProvider>

/// Pictures from the network for image://thumbnail/<radius>/<address>, the radius
/// in device pixels and the address in base 64; cropped to the size asked for,
/// with rounded corners painted in. Only http and https,
/// and only what a thumbnail may reasonably weigh; everything else fails.
class ThumbnailProvider : public QQuickAsyncImageProvider
{
public:
    ThumbnailProvider();

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

private:
    QNetworkAccessManager m_network; // main thread
};

/// The picture, scaled and cropped to fill the size, with rounded corners.
QImage roundedThumbnail(const QImage &picture, QSize size, double radius);
