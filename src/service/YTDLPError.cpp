// SPDX-License-Identifier: GPL-3.0-or-later
#include "YTDLPError.h"

YTDLPError::YTDLPError(Case kind, QString message, Launch launch)
    : m_kind(kind)
    , m_message(std::move(message))
    , m_launch(launch)
{
}

YTDLPError YTDLPError::fetchFailed(const QString &message, Launch launch)
{
    return {Case::fetchFailed, message, launch};
}

YTDLPError YTDLPError::downloadFailed(const QString &message, Launch launch)
{
    return {Case::downloadFailed, message, launch};
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
