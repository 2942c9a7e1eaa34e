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
// How often the size shown a picture may be as wide or as high, filling it.
constexpr int largestExcess = 8;

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
    // A long thin strip, filling the size, would be huge.
    const QSize scaled = original.scaled(size, Qt::KeepAspectRatioByExpanding);
    if (scaled.width() > largestExcess * size.width()
        || scaled.height() > largestExcess * size.height())
        return {};
    reader.setScaledSize(scaled);
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
    m_url = url;
    if (const QByteArray known = m_cache->find(url); !known.isEmpty()) {
        decodeElsewhere(known);
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
    decodeElsewhere(m_reply->readAll());
}

// Nobody else touches the image until finished() is emitted, and the engine keeps
// this object until then.
void ThumbnailResponse::decodeElsewhere(const QByteArray &bytes)
{
    QThreadPool::globalInstance()->start([this, bytes] { decode(bytes); });
}

void ThumbnailResponse::decode(const QByteArray &bytes)
{
    const QImage picture = decoded(bytes, m_size);
    if (picture.isNull()) {
        fail(QStringLiteral("Not a picture"));
        return;
    }
    m_cache->insert(m_url, bytes);
    m_image = roundedThumbnail(picture, m_size, m_radius);
    Q_EMIT finished();
}

void ThumbnailResponse::fail(const QString &error)
{
    m_error = error;
    Q_EMIT finished();
}
