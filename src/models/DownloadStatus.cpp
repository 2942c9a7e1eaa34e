// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadStatus.h"

#include "Percent.h"

DownloadStatus DownloadStatus::waiting()
{
    return DownloadStatus(Case::waiting);
}

DownloadStatus DownloadStatus::fetching()
{
    return DownloadStatus(Case::fetching);
}

DownloadStatus DownloadStatus::downloading(double progress, const QString &speed,
                                           const QString &eta)
{
    DownloadStatus status(Case::downloading);
    status.m_progress = progress;
    status.m_speed = speed;
    status.m_eta = eta;
    return status;
}

DownloadStatus DownloadStatus::processing()
{
    return DownloadStatus(Case::processing);
}

DownloadStatus DownloadStatus::done(const QString &path)
{
    DownloadStatus status(Case::done);
    status.m_path = path;
    return status;
}

DownloadStatus DownloadStatus::failed(const QString &message)
{
    DownloadStatus status(Case::failed);
    status.m_message = message;
    return status;
}

QString DownloadStatus::badgeLabel() const
{
    switch (m_kind) {
    case Case::waiting:
        return QStringLiteral("Ready");
    case Case::fetching:
        return QStringLiteral("Fetching...");
    case Case::downloading:
        return percentText(m_progress);
    case Case::processing:
        return QStringLiteral("Processing...");
    case Case::done:
        return QStringLiteral("Done");
    case Case::failed:
        return QStringLiteral("Failed");
    }
    Q_UNREACHABLE();
}
