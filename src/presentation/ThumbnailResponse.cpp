// SPDX-License-Identifier: GPL-3.0-or-later
#include "ThumbnailResponse.h"

#include "ThumbnailProvider.h"

#include <QBuffer>
#include <QImageReader>
#include <QNetworkAccessManager>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>

namespace {

// Twice what the largest thumbnails of video sites weigh; and a little more than
// their largest pictures have. A server that wants more gets the placeholder.
constexpr qint64 largestThumbnail = 8LL * 1024 * 1024;
constexpr qint64 mostPixels = 40'000'000;

// What video sites send. Others, whatever Qt could read, are not worth trusting.
bool isTrusted(const QByteArray &format)
{
    return format == "jpeg" || format == "png" || format == "webp" || format == "gif";
}

QImage decoded(const QByteArray &bytes, QSize size)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (!reader.canRead() || !isTrusted(reader.format()))
        return {};
    const QSize original = reader.size();
    if (original.isEmpty() || qint64(original.width()) * original.height() > mostPixels)
        return {};
    reader.setScaledSize(original.scaled(size, Qt::KeepAspectRatioByExpanding));
    return reader.read();
}

} // namespace

ThumbnailResponse::ThumbnailResponse(QSize size, double radius,
                                     std::shared_ptr<ThumbnailCache> cache)
    : m_size(size)
    , m_radius(radius)
    , m_cache(std::move(cache))
{
}

ThumbnailResponse::~ThumbnailResponse()
{
    if (m_reply)
        m_reply->abort();
}

void ThumbnailResponse::load(QNetworkAccessManager &network, const QUrl &url,
                             std::chrono::milliseconds patience)
{
    if (!url.isValid() || url.host().isEmpty()
        || (url.scheme() != u"http" && url.scheme() != u"https") || m_size.isEmpty()) {
        fail(QStringLiteral("Not an address of a picture"));
        return;
    }
    m_key = QStringLiteral("%1x%2/%3/%4")
                .arg(m_size.width())
                .arg(m_size.height())
                .arg(m_radius)
                .arg(url.toString(QUrl::FullyEncoded));
    m_image = m_cache->find(m_key);
    if (!m_image.isNull()) {
        Q_EMIT finished();
        return;
    }
    m_reply = network.get(QNetworkRequest(url));
    QTimer::singleShot(patience, m_reply, &QNetworkReply::abort);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (std::max(received, total) > largestThumbnail)
            m_reply->abort();
    });
    connect(m_reply, &QNetworkReply::finished, this, &ThumbnailResponse::handleFinished);
}

QQuickTextureFactory *ThumbnailResponse::textureFactory() const
{
    return QQuickTextureFactory::textureFactoryForImage(m_image);
}

void ThumbnailResponse::cancel()
{
    QMetaObject::invokeMethod(this, [this] {
        if (m_reply)
            m_reply->abort();
    });
}

void ThumbnailResponse::handleFinished()
{
    m_reply->deleteLater();
    if (m_reply->error() != QNetworkReply::NoError) {
        fail(m_reply->errorString());
        return;
    }
    // Nobody else touches the image until finished() is emitted, and the engine
    // keeps this object until then.
    QThreadPool::globalInstance()->start([this, bytes = m_reply->readAll()] { decode(bytes); });
}

void ThumbnailResponse::decode(const QByteArray &bytes)
{
    const QImage picture = decoded(bytes, m_size);
    if (picture.isNull()) {
        fail(QStringLiteral("Not a picture"));
        return;
    }
    m_image = roundedThumbnail(picture, m_size, m_radius);
    m_cache->insert(m_key, m_image);
    Q_EMIT finished();
}

void ThumbnailResponse::fail(const QString &error)
{
    m_error = error;
    Q_EMIT finished();
}
