// SPDX-License-Identifier: GPL-3.0-or-later
#include "ThumbnailResponse.h"

#include "ThumbnailProvider.h"

#include <QBuffer>
#include <QImageReader>
#include <QNetworkAccessManager>
#include <QThreadPool>

#include <algorithm>

namespace {

// Twice what the largest thumbnails of video sites weigh, and time enough for a
// slow line; a server that wants more of either gets the placeholder.
constexpr qint64 largestThumbnail = 8LL * 1024 * 1024;
constexpr int transferTimeout = 15'000; // ms

QImage decoded(const QByteArray &bytes, QSize size)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize original = reader.size();
    if (original.isValid())
        reader.setScaledSize(original.scaled(size, Qt::KeepAspectRatioByExpanding));
    return reader.read();
}

} // namespace

ThumbnailResponse::ThumbnailResponse(QSize size, double radius)
    : m_size(size)
    , m_radius(radius)
{
}

ThumbnailResponse::~ThumbnailResponse()
{
    if (m_reply)
        m_reply->abort();
}

void ThumbnailResponse::load(QNetworkAccessManager &network, const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty()
        || (url.scheme() != u"http" && url.scheme() != u"https") || m_size.isEmpty()) {
        fail(QStringLiteral("Not an address of a picture"));
        return;
    }
    QNetworkRequest request(url);
    request.setTransferTimeout(transferTimeout);
    m_reply = network.get(request);
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
    QThreadPool::globalInstance()->start([this, bytes = m_reply->readAll()] {
        const QImage picture = decoded(bytes, m_size);
        if (picture.isNull())
            m_error = QStringLiteral("Not a picture");
        else
            m_image = roundedThumbnail(picture, m_size, m_radius);
        Q_EMIT finished();
    });
}

void ThumbnailResponse::fail(const QString &error)
{
    m_error = error;
    Q_EMIT finished();
}
