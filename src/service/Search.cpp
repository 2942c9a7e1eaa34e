// SPDX-License-Identifier: GPL-3.0-or-later
#include "Search.h"

#include "JsonFields.h"
#include "Metadata.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

// The public URLs of the video site.
const QString thumbnailHost = u"https://i.ytimg.com"_s;
const QString watchHost = u"https://www.youtube.com"_s;

QString encoded(const QString &id)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(id));
}

QString thumbnailOf(const QJsonObject &json, const QString &id)
{
    const QString thumbnail = bestThumbnail(json);
    return thumbnail.isEmpty() ? thumbnailHost + u"/vi/%1/mqdefault.jpg"_s.arg(encoded(id))
                               : thumbnail;
}

/// The maps that a line of output contains.
QList<QJsonObject> candidates(const QJsonObject &line)
{
    const QJsonValue entries = line[QLatin1String("entries")];
    if (!entries.isArray())
        return {line};
    QList<QJsonObject> maps;
    const QJsonArray elements = entries.toArray();
    for (const QJsonValue element : elements) {
        if (element.isObject())
            maps.append(element.toObject());
    }
    return maps;
}

} // namespace

std::optional<SearchResult> parseSearchResult(const QJsonObject &json)
{
    const auto id = textAt(json, "id");
    if (!id)
        return {};
    return SearchResult{
        .id = *id,
        .title = textAt(json, "title").value_or(u"Unknown"_s),
        .uploader = firstTextAt(json, {"uploader", "channel", "uploader_id"}),
        .duration = numberAt(json, "duration"),
        .thumbnailURL = thumbnailOf(json, *id),
        .videoURL = watchHost + u"/watch?v="_s + encoded(*id),
    };
}

QList<SearchResult> resultsFromOutput(const QByteArray &output)
{
    QList<SearchResult> results;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray &line : lines) {
        const QJsonDocument document = QJsonDocument::fromJson(line.trimmed());
        if (!document.isObject())
            continue;
        const QList<QJsonObject> maps = candidates(document.object());
        for (const QJsonObject &map : maps) {
            if (const auto result = parseSearchResult(map))
                results.append(*result);
        }
    }
    return results;
}

Reply<QUrl> streamFromOutput(const QByteArray &output)
{
    const QList<QByteArray> lines = output.trimmed().split('\n');
    const QUrl url = QUrl::fromEncoded(lines.first(), QUrl::StrictMode);
    if (url.isEmpty() || !url.isValid())
        return YTDLPError::fetchFailed(u"Could not retrieve stream URL"_s);
    return url;
}
