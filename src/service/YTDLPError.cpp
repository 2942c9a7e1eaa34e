// SPDX-License-Identifier: GPL-3.0-or-later
#include "YTDLPError.h"

using namespace Qt::StringLiterals;

YTDLPError::YTDLPError(Kind kind, QString message, Launch launch)
    : m_kind(kind)
    , m_message(std::move(message))
    , m_launch(launch)
{
}

YTDLPError YTDLPError::fetchFailed(const QString &message, Launch launch)
{
    return {Kind::fetchFailed, message, launch};
}

YTDLPError YTDLPError::downloadFailed(const QString &message, Launch launch)
{
    return {Kind::downloadFailed, message, launch};
}

YTDLPError YTDLPError::parseError(const QString &message)
{
    return {Kind::parseError, message};
}

YTDLPError YTDLPError::notFound()
{
    return {Kind::notFound, {}};
}

QString YTDLPError::errorDescription() const
{
    switch (m_kind) {
    case Kind::fetchFailed:
        return u"Failed to fetch info: "_s + m_message;
    case Kind::downloadFailed:
        return u"Download failed: "_s + m_message;
    case Kind::parseError:
        return u"Parse error: "_s + m_message;
    case Kind::notFound:
        return u"yt-dlp not found. Please install via: brew install yt-dlp"_s;
    }
    Q_UNREACHABLE();
}

JSONReaderError::JSONReaderError(QString message)
    : m_message(std::move(message))
{
}

QString JSONReaderError::errorDescription() const
{
    return m_message;
}
