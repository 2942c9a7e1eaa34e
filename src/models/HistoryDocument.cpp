// SPDX-License-Identifier: GPL-3.0-or-later
#include "HistoryDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <array>
#include <charconv>
#include <cmath>

namespace {

// Qt's own JSON writer sorts the keys of an object; here their order is fixed.

void appendString(QByteArray &json, const QString &text)
{
    static constexpr char hexDigits[] = "0123456789abcdef";
    json.append('"');
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        if (byte == '"' || byte == '\\')
            json.append('\\').append(byte);
        else if (byte == '\n')
            json.append("\\n");
        else if (byte == '\r')
            json.append("\\r");
        else if (byte == '\t')
            json.append("\\t");
        else if (static_cast<unsigned char>(byte) < 0x20)
            json.append("\\u00").append(hexDigits[byte >> 4]).append(hexDigits[byte & 15]);
        else
            json.append(byte);
    }
    json.append('"');
}

void appendNumber(QByteArray &json, double number)
{
    // The shortest text that reads back as the same number: 24 characters at most.
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    json.append(text.data(), end - text.data());
}

void appendMember(QByteArray &json, const char *key, const QString &value)
{
    json.append(",\"").append(key).append("\":");
    appendString(json, value);
}

void appendRecord(QByteArray &json, const HistoryItem &item)
{
    json.append("{\"id\":");
    appendString(json, item.id.toString(QUuid::WithoutBraces).toUpper());
    appendMember(json, "title", item.title);
    appendMember(json, "thumbnailURL", item.thumbnailURL);
    appendMember(json, "url", item.url);
    appendMember(json, "format", item.format);
    appendMember(json, "quality", item.quality);
    if (item.savedPath)
        appendMember(json, "savedPath", *item.savedPath);
    json.append(",\"date\":");
    appendNumber(json, item.date.seconds);
    json.append('}');
}

std::optional<QUuid> uuidFrom(const QString &text)
{
    // QUuid takes braces and other forms too, and answers garbage with the null UUID.
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\\z"));
    return form.match(text).hasMatch() ? std::optional(QUuid::fromString(text)) : std::nullopt;
}

std::optional<HistoryItem> recordFrom(const QJsonObject &object)
{
    for (const char *key : {"id", "title", "thumbnailURL", "url", "format", "quality"}) {
        if (!object[QLatin1String(key)].isString())
            return {};
    }
    const auto id = uuidFrom(object[QLatin1String("id")].toString());
    const QJsonValue savedPath = object[QLatin1String("savedPath")];
    const bool hasPath = savedPath.isString();
    if (!id || !object[QLatin1String("date")].isDouble()
        || (!hasPath && !savedPath.isUndefined() && !savedPath.isNull()))
        return {};

    return HistoryItem{
        .id = *id,
        .title = object[QLatin1String("title")].toString(),
        .thumbnailURL = object[QLatin1String("thumbnailURL")].toString(),
        .url = object[QLatin1String("url")].toString(),
        .format = object[QLatin1String("format")].toString(),
        .quality = object[QLatin1String("quality")].toString(),
        .savedPath = hasPath ? std::optional(savedPath.toString()) : std::nullopt,
        .date = {object[QLatin1String("date")].toDouble()},
    };
}

} // namespace

std::optional<QByteArray> encodeHistory(const QList<HistoryItem> &history)
{
    QByteArray json("[");
    for (const HistoryItem &item : history) {
        if (!std::isfinite(item.date.seconds))
            return {};
        if (json.size() > 1)
            json.append(',');
        appendRecord(json, item);
    }
    return json.append(']');
}

std::optional<QList<HistoryItem>> decodeHistory(const QByteArray &document)
{
    const QJsonDocument json = QJsonDocument::fromJson(document);
    if (!json.isArray())
        return {};

    QList<HistoryItem> history;
    const QJsonArray records = json.array();
    history.reserve(records.size());
    for (const QJsonValue record : records) {
        const auto item = recordFrom(record.toObject());
        if (!item)
            return {};
        history.append(*item);
    }
    return history;
}
