// SPDX-License-Identifier: GPL-3.0-or-later
#include "HistoryDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <functional>

namespace {

// Qt's own JSON writer sorts the keys of an object; here the order is fixed.

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

// QUuid also accepts braces and other forms, and turns garbage into the null UUID.
bool isIdentifier(const QString &text)
{
    constexpr qsizetype length = 36;
    constexpr std::array<qsizetype, 4> hyphens{8, 13, 18, 23};
    if (text.size() != length)
        return false;
    for (qsizetype index = 0; index < length; ++index) {
        const char16_t letter = text[index].unicode();
        const bool isHyphenHere = std::find(hyphens.begin(), hyphens.end(), index) != hyphens.end();
        if (isHyphenHere ? letter != u'-' : letter > 0x7f || !std::isxdigit(letter))
            return false;
    }
    return true;
}

std::optional<HistoryItem> recordFrom(const QJsonObject &object)
{
    const std::array<QJsonValue, 6> texts{
        object[QLatin1String("id")],           object[QLatin1String("title")],
        object[QLatin1String("thumbnailURL")], object[QLatin1String("url")],
        object[QLatin1String("format")],       object[QLatin1String("quality")]};
    const QJsonValue savedPath = object[QLatin1String("savedPath")];
    const QJsonValue date = object[QLatin1String("date")];
    const bool hasPath = savedPath.isString();
    if (!std::all_of(texts.begin(), texts.end(), std::mem_fn(&QJsonValue::isString))
        || !isIdentifier(texts[0].toString()) || !date.isDouble()
        || (!hasPath && !savedPath.isUndefined() && !savedPath.isNull()))
        return {};

    return HistoryItem{
        .id = QUuid::fromString(texts[0].toString()),
        .title = texts[1].toString(),
        .thumbnailURL = texts[2].toString(),
        .url = texts[3].toString(),
        .format = texts[4].toString(),
        .quality = texts[5].toString(),
        .savedPath = hasPath ? std::optional(savedPath.toString()) : std::nullopt,
        .date = {date.toDouble()},
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
