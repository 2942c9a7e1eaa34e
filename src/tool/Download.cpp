// SPDX-License-Identifier: GPL-3.0-or-later
#include "Download.h"

#include <QNetworkAccessManager>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;
constexpr int firstError = 400; // of HTTP's status codes

QNetworkRequest requestFor(const QUrl &url, std::chrono::milliseconds longestSilence)
{
    QNetworkRequest request(url);
    request.setTransferTimeout(static_cast<int>(longestSilence.count()));
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    // As it is, so that bounds are bounds.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

} // namespace

Download::Download(QNetworkAccessManager &network, const QUrl &url, Limits limits,
                   Handlers handlers)
    : m_limits(limits)
    , m_handlers(std::move(handlers))
    , m_reply(network.get(requestFor(url, limits.longestSilence)))
{
    m_reply->setParent(this);
    connect(m_reply, &QNetworkReply::redirected, this, &Download::follow);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::read);
    connect(m_reply, &QNetworkReply::finished, this, &Download::finish);
}

Download::~Download()
{
    m_reply->disconnect(this);
    m_reply->abort();
}

void Download::follow(const QUrl &target)
{
    if (target.scheme() == u"https")
        Q_EMIT m_reply->redirectAllowed();
    else
        end(u"the server leads to an unsafe URL"_s);
}

void Download::read()
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= firstError) { // whatever else it sends
        end(u"the server answered %1"_s.arg(status));
        return;
    }
    const QByteArray bytes = m_reply->readAll();
    m_bytes += bytes.size();
    const auto length = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (m_bytes > m_limits.mostBytes || length > m_limits.mostBytes) {
        end(u"what came is too large to be yt-dlp"_s);
        return;
    }
    const double part =
        length > 0 ? static_cast<double>(m_bytes) / static_cast<double>(length) : -1;
    if (const QString error = m_handlers.onBytes(bytes, part); !error.isEmpty())
        end(error);
}

void Download::finish()
{
    if (m_handlers.onEnd && m_reply->isOpen()) // one that never connected is not
        read();
    end(failure());
}

void Download::end(const QString &error)
{
    // Later data goes with this object: aborted from its own signal, the reply would
    // complain.
    m_reply->disconnect(this);
    if (const auto onEnd = std::exchange(m_handlers.onEnd, {}))
        onEnd(error);
}

QString Download::failure() const
{
    if (m_reply->error() == QNetworkReply::NoError)
        return {};
    if (m_reply->error() == QNetworkReply::OperationCanceledError
        || m_reply->error() == QNetworkReply::TimeoutError)
        return u"nothing came for %1 seconds"_s.arg(
            std::chrono::ceil<std::chrono::seconds>(m_limits.longestSilence).count());
    const QString words = m_reply->errorString().simplified();
    return words.endsWith(u'.') ? words.chopped(1) : words;
}
