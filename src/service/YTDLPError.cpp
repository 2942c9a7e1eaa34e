// SPDX-License-Identifier: GPL-3.0-or-later
#include "YTDLPError.h"

YTDLPError::YTDLPError(Case kind, QString message)
    : m_kind(kind)
    , m_message(std::move(message))
{
}

YTDLPError YTDLPError::fetchFailed(const QString &message)
{
    return {Case::fetchFailed, message};
}

YTDLPError YTDLPError::downloadFailed(const QString &message)
{
    return {Case::downloadFailed, message};
}

YTDLPError YTDLPError::parseError(const QString &message)
{
    return {Case::parseError, message};
}

YTDLPError YTDLPError::notFound()
{
    return {Case::notFound, {}};
}

QString YTDLPError::errorDescription() const
{
    switch (m_kind) {
    case Case::fetchFailed:
        return QStringLiteral("Failed to fetch info: ") + m_message;
    case Case::downloadFailed:
        return QStringLiteral("Download failed: ") + m_message;
    case Case::parseError:
        return QStringLiteral("Parse error: ") + m_message;
    case Case::notFound:
        return QStringLiteral("yt-dlp not found. Please install via: brew install yt-dlp");
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
