// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickImageProvider>

/// Thumbnails that are there at once, and nothing of the network.
class GreyPictures : public QQuickImageProvider
{
public:
    GreyPictures()
        : QQuickImageProvider(QQuickImageProvider::Image)
    {
    }
    QImage requestImage(const QString & /*id*/, QSize *size, const QSize &requested) override
    {
        QImage image(requested, QImage::Format_RGB32);
        image.fill(Qt::gray);
        *size = image.size();
        return image;
    }
};
