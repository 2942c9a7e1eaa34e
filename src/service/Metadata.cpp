// SPDX-License-Identifier: GPL-3.0-or-later
#include "Metadata.h"

#include "JsonFields.h"

#include <QJsonDocument>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Wider pictures are not worth their bytes at the sizes shown.
constexpr qint64 thumbnailWidthCeiling = 640;

QSet<qint64> heightsOf(const QJsonObject &json)
{
    QSet<qint64> heights;
    const auto formats = mapsAt(json, "formats").value_or(QList<QJsonObject>());
    for (const QJsonObject &format : formats) {
        if (const auto height = wholeNumberAt(format, "height"); height && *height >= 1)
            heights.insert(*height);
    }
    return heights;
}

QString widestWithinCeiling(const QList<QJsonObject> &maps)
{
    struct Thumbnail
    {
        QString url;
        qint64 width;
    };
    QList<Thumbnail> thumbnails;
    for (const QJsonObject &map : maps) {
        if (const auto url = textAt(map, "url"))
            thumbnails.append({*url, wholeNumberAt(map, "width").value_or(0)});
    }
    if (thumbnails.isEmpty())
        return {};

    std::stable_sort(thumbnails.begin(), thumbnails.end(),
                     [](const Thumbnail &a, const Thumbnail &b) { return a.width > b.width; });
    const auto best = std::find_if(thumbnails.cbegin(), thumbnails.cend(), [](const auto &each) {
        return each.width <= thumbnailWidthCeiling;
    });
    return best == thumbnails.cend() ? thumbnails.first().url : best->url;
}

QList<VideoInfo> entriesOf(const QJsonObject &playlist)
{
    QList<VideoInfo> entries;
    const auto maps = mapsAt(playlist, "entries").value_or(QList<QJsonObject>());
    for (const QJsonObject &map : maps)
        entries.append(parseVideoInfo(map, textAt(map, "url").value_or(QString())));
    return entries;
}

} // namespace

VideoInfo parseVideoInfo(const QJsonObject &json, const QString &url)
{
    const auto id = textAt(json, "id");
    return {
        .id = id ? *id : QUuid::createUuid().toString(QUuid::WithoutBraces),
        .title = textAt(json, "title").value_or(u"Unknown Title"_s),
        .thumbnailURL = bestThumbnail(json),
        .duration = numberAt(json, "duration"),
        .uploader = firstTextAt(json, {"uploader", "channel", "uploader_id"}),
        .originalURL = url,
        .isPlaylist = false,
        .playlistEntries = {},
        .playlistTitle = {},
        .availableHeights = heightsOf(json),
    };
}

QString bestThumbnail(const QJsonObject &json)
{
    if (const auto thumbnails = mapsAt(json, "thumbnails"))
        return widestWithinCeiling(*thumbnails);
    return textAt(json, "thumbnail").value_or(QString());
}

Reply<VideoInfo> videoFromOutput(const QByteArray &output, const QString &url)
{
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(output, &error);
    if (error.error != QJsonParseError::NoError)
        return JSONReaderError(error.errorString());
    if (!json.isObject())
        return YTDLPError::parseError(u"Could not parse video JSON"_s);
    return parseVideoInfo(json.object(), url);
}

VideoInfo playlistFromOutput(const QByteArray &output, const QString &url)
{
    QList<VideoInfo> entries;
    std::optional<QString> title;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray &line : lines) {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (!document.isObject())
            continue;
        const QJsonObject json = document.object();
        if (json[QLatin1String("_type")] == QLatin1String("playlist")) {
            if (const auto playlistTitle = textAt(json, "title"))
                title = playlistTitle;
            entries += entriesOf(json);
        } else {
            entries.append(parseVideoInfo(json, firstTextAt(json, {"url", "webpage_url"})));
        }
    }

    const bool isEmpty = entries.isEmpty();
    return {
        .id = url,
        .title = title.value_or(u"Playlist (%1 videos)"_s.arg(entries.size())),
        .thumbnailURL = isEmpty ? QString() : entries.first().thumbnailURL,
        .duration = {},
        .uploader = isEmpty ? QString() : entries.first().uploader,
        .originalURL = url,
        .isPlaylist = true,
        .playlistEntries = entries,
        .playlistTitle = title,
        .availableHeights = {},
    };
}
