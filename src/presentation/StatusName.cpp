// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusName.h"

#include "AppState.h"
#include "Percent.h"
#include "ShownText.h"

QString statusName(const DownloadStatus &status)
{
    switch (status.kind()) {
    case DownloadStatus::Case::waiting:
        return QStringLiteral("waiting");
    case DownloadStatus::Case::fetching:
        return QStringLiteral("fetching");
    case DownloadStatus::Case::downloading:
        return QStringLiteral("downloading");
    case DownloadStatus::Case::processing:
        return QStringLiteral("processing");
    case DownloadStatus::Case::done:
        return QStringLiteral("done");
    case DownloadStatus::Case::failed:
        return QStringLiteral("failed");
    }
    Q_UNREACHABLE();
}

namespace {

std::optional<DownloadStatus> browseStatus(const AppState &state, const QString &resultID,
                                           bool isAudio)
{
    const auto &statuses = state.browseDownloadStatuses();
    const auto found = statuses.constFind(SearchResult::downloadKey(resultID, isAudio));
    return found == statuses.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace

QString browseStatusName(const AppState &state, const QString &resultID, bool isAudio)
{
    const auto status = browseStatus(state, resultID, isAudio);
    return status ? statusName(*status) : QString();
}

QString browseSpoken(const AppState &state, const QString &resultID, bool isAudio)
{
    const auto status = browseStatus(state, resultID, isAudio);
    if (!status)
        return {};
    switch (status->kind()) {
    case DownloadStatus::Case::downloading:
        return QStringLiteral("Downloading ")
            + percentText(browseProgress(state, resultID, isAudio));
    case DownloadStatus::Case::processing:
        return QStringLiteral("Processing");
    case DownloadStatus::Case::done:
        return QStringLiteral("Done");
    case DownloadStatus::Case::failed:
        return QStringLiteral("Failed, press to try again: ") + shownText(status->message());
    case DownloadStatus::Case::waiting:
    case DownloadStatus::Case::fetching:
        return {};
    }
    Q_UNREACHABLE();
}

double browseProgress(const AppState &state, const QString &resultID, bool isAudio)
{
    return state.browseDownloadProgress().value(SearchResult::downloadKey(resultID, isAudio));
}
