// SPDX-License-Identifier: GPL-3.0-or-later
#include "JsonFields.h"

#include <QJsonArray>

#include <cmath>

std::optional<QString> textAt(const QJsonObject &json, const char *key)
{
    const QJsonValue value = json[QLatin1String(key)];
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<double> numberAt(const QJsonObject &json, const char *key)
{
    const QJsonValue value = json[QLatin1String(key)];
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<qint64> wholeNumberAt(const QJsonObject &json, const char *key)
{
    constexpr double limit = 9e15; // beyond it doubles do not hold every whole number
    const auto number = numberAt(json, key);
    if (!number || std::trunc(*number) != *number || std::abs(*number) > limit)
        return {};
    return static_cast<qint64>(*number);
}

std::optional<QList<QJsonObject>> mapsAt(const QJsonObject &json, const char *key)
{
    const QJsonValue value = json[QLatin1String(key)];
    if (!value.isArray())
        return {};
    QList<QJsonObject> maps;
    const QJsonArray elements = value.toArray();
    for (const QJsonValue element : elements) {
        if (!element.isObject())
            return {};
        maps.append(element.toObject());
    }
    return maps;
}

QString firstTextAt(const QJsonObject &json, std::initializer_list<const char *> keys)
{
    for (const char *const key : keys) {
        if (const auto text = textAt(json, key))
            return *text;
    }
    return {};
}
