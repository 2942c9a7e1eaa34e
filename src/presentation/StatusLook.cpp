// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusLook.h"

#include "AppState.h"
#include "Percent.h"
#include "ShownText.h"

using namespace Qt::StringLiterals;

namespace {

template<typename Status>
StatusKind::Value shownKind(const Status &status, bool isPaused)
{
    const auto kind = kindOf(status);
    return isPaused && kind == StatusKind::Downloading ? StatusKind::Paused : kind;
}

QString toneOf(StatusKind::Value kind)
{
    switch (kind) {
    case StatusKind::Downloading:
        return u"accent"_s;
    case StatusKind::Paused:
    case StatusKind::Processing:
        return u"orange"_s;
    case StatusKind::Done:
        return u"green"_s;
    case StatusKind::Failed:
        return u"red"_s;
    case StatusKind::Idle:
    case StatusKind::Waiting:
    case StatusKind::Fetching:
        return u"secondary"_s;
    }
    Q_UNREACHABLE();
}

QString chipSymbol(StatusKind::Value kind)
{
    switch (kind) {
    case StatusKind::Downloading:
        return u"arrow.down.circle.fill"_s;
    case StatusKind::Paused:
        return u"pause.circle.fill"_s;
    case StatusKind::Processing:
        return u"gearshape.fill"_s;
    case StatusKind::Done:
        return u"checkmark.circle.fill"_s;
    case StatusKind::Failed:
        return u"xmark.circle.fill"_s;
    default:
        return {};
    }
}

QString chipText(StatusKind::Value kind)
{
    switch (kind) {
    case StatusKind::Downloading:
        return u"Downloading"_s;
    case StatusKind::Paused:
        return u"Paused"_s;
    case StatusKind::Processing:
        return u"Processing"_s;
    case StatusKind::Done:
        return u"Complete"_s;
    case StatusKind::Failed:
        return u"Failed"_s;
    default:
        return {};
    }
}

QString badgeSymbol(StatusKind::Value kind)
{
    switch (kind) {
    case StatusKind::Waiting:
        return u"circle.dotted"_s;
    case StatusKind::Processing:
        return u"gearshape.fill"_s;
    case StatusKind::Done:
        return u"checkmark"_s;
    case StatusKind::Failed:
        return u"xmark"_s;
    default: // a spinner, a ring or a word
        return {};
    }
}

QString spoken(const DownloadStatus &status, double progress)
{
    switch (kindOf(status)) {
    case StatusKind::Downloading:
        return u"Downloading "_s + percentText(progress);
    case StatusKind::Processing:
        return u"Processing"_s;
    case StatusKind::Done:
        return u"Done"_s;
    case StatusKind::Failed:
        return u"Failed, press to try again: "_s + shownText(messageOf(status));
    default:
        return {};
    }
}

} // namespace

StatusLook chipLook(const DownloadUIStatus &status, bool isPaused)
{
    const auto kind = shownKind(status, isPaused);
    return {.kind = kind, .symbol = chipSymbol(kind), .tone = toneOf(kind), .text = chipText(kind)};
}

StatusLook badgeLook(const DownloadStatus &status, bool isPaused)
{
    const auto kind = shownKind(status, isPaused);
    return {.kind = kind,
            .symbol = badgeSymbol(kind),
            .tone = toneOf(kind),
            .text = kind == StatusKind::Paused ? u"Paused"_s : badgeLabel(status),
            .progress = progressOf(status)};
}

StatusLook downloadButtonLook(const AppState &state, const QString &resultID, bool isAudio)
{
    StatusLook look{.symbol = isAudio ? u"music.note"_s : u"film"_s, .tone = u"primary"_s};
    const QString key = SearchResult::downloadKey(resultID, isAudio);
    const auto status = state.browseDownloadStatuses().constFind(key);
    if (status == state.browseDownloadStatuses().constEnd())
        return look;
    look.kind = kindOf(*status);
    look.progress = state.browseDownloadProgress().value(key);
    look.text = spoken(*status, look.progress);
    if (look.kind == StatusKind::Done || look.kind == StatusKind::Failed) {
        look.symbol = look.kind == StatusKind::Done ? u"checkmark"_s : u"arrow.counterclockwise"_s;
        look.tone = toneOf(kindOf(*status));
    }
    return look;
}
