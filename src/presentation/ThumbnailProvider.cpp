// SPDX-License-Identifier: GPL-3.0-or-later
#include "ThumbnailProvider.h"

#include "ThumbnailResponse.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

namespace {

// Some thousand thumbnails of video sites.
constexpr qsizetype cacheBytes = 32LL * 1024 * 1024;

} // namespace

ThumbnailProvider::ThumbnailProvider(PictureSource source)
    : m_source(std::move(source))
    , m_cache(std::make_shared<ThumbnailCache>(cacheBytes))
{
}

QQuickImageResponse *ThumbnailProvider::requestImageResponse(const QString &id,
                                                             const QSize &requestedSize)
{
    const qsizetype slash = id.indexOf(u'/');
    const QUrl url(QString::fromUtf8(QByteArray::fromBase64(id.mid(slash + 1).toUtf8())));
    auto *const response = new ThumbnailResponse(requestedSize, id.left(slash).toDouble(), m_cache);
    // Images are requested on a loading thread; the network lives on the main one.
    response->moveToThread(QCoreApplication::instance()->thread());
    QMetaObject::invokeMethod(
        response, [this, response, url] { response->load(network(), url, m_source); },
        Qt::QueuedConnection);
    return response;
}

QNetworkAccessManager &ThumbnailProvider::network()
{
    if (!m_network)
        m_network.emplace();
    return *m_network;
}

QImage roundedThumbnail(const QImage &picture, QSize size, double radius)
{
    const QImage scaled =
        picture.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    QImage rounded(size, QImage::Format_ARGB32_Premultiplied);
    rounded.fill(Qt::transparent);
    QPainter painter(&rounded);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rounded.rect(), radius, radius);
    painter.setClipPath(outline);
    painter.drawImage((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2,
                      scaled);
    return rounded;
}
