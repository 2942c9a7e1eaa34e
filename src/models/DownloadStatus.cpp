// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadStatus.h"

#include "Percent.h"

using namespace Qt::StringLiterals;

double progressOf(const DownloadStatus &status)
{
    const auto *const downloading = std::get_if<Status::Downloading>(&status);
    return downloading ? downloading->progress : 0;
}

QString badgeLabel(const DownloadStatus &status)
{
    switch (kindOf(status)) {
    case StatusKind::Waiting:
        return u"Ready"_s;
    case StatusKind::Fetching:
        return u"Fetching..."_s;
    case StatusKind::Downloading:
        return percentText(progressOf(status));
    case StatusKind::Processing:
        return u"Processing..."_s;
    case StatusKind::Done:
        return u"Done"_s;
    case StatusKind::Failed:
        return u"Failed"_s;
    default:
        Q_UNREACHABLE();
    }
}
