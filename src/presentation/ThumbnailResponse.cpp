// SPDX-License-Identifier: GPL-3.0-or-later
#include "ThumbnailResponse.h"

#include "PictureBounds.h"
#include "ThumbnailProvider.h"

#include <QNetworkAccessManager>
#include <QThreadPool>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Twice what the largest thumbnails of video sites weigh. Anything larger becomes the
// placeholder.
constexpr qint64 largestThumbnail = 8LL * 1024 * 1024;
// What has not been read yet stays with the server.
constexpr qint64 readAhead = 1024LL * 1024;

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
                             const PictureSource &source)
{
    if (!source.isAllowed(url) || m_size.isEmpty()) {
        fail(u"Not a URL of a picture"_s);
        return;
    }
    m_url = url;
    if (const QByteArray known = m_cache->find(url); !known.isEmpty()) {
        decodeElsewhere(known);
        return;
    }
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setRawHeader("Accept-Encoding",
                         "identity"); // so that the announced size is the real one
    m_reply = network.get(request);
    m_reply->setReadBufferSize(readAhead);
    QTimer::singleShot(source.patience, m_reply, &QNetworkReply::abort);
    connect(m_reply, &QNetworkReply::redirected, this, [this, url, source](const QUrl &target) {
        const bool isLessSafe = url.scheme() == u"https" && target.scheme() != u"https";
        if (source.isAllowed(target) && !isLessSafe)
            Q_EMIT m_reply->redirectAllowed();
        else
            m_reply->abort();
    });
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64, qint64 total) {
        if (total > largestThumbnail)
            m_reply->abort();
    });
    connect(m_reply, &QNetworkReply::readyRead, this, [this] {
        m_bytes += m_reply->readAll();
        if (m_bytes.size() > largestThumbnail)
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
    decodeElsewhere(m_bytes + m_reply->readAll());
}

// Nobody else touches the image until finished() is emitted, and the engine keeps
// this object until then.
void ThumbnailResponse::decodeElsewhere(const QByteArray &bytes)
{
    QThreadPool::globalInstance()->start([this, bytes] { decode(bytes); });
}

void ThumbnailResponse::decode(const QByteArray &bytes)
{
    const QImage picture = boundedPicture(bytes, m_size);
    if (picture.isNull()) {
        fail(u"Not a picture"_s);
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
