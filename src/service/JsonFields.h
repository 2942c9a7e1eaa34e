// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

#include <initializer_list>
#include <optional>

// The tool's output is read key by key: a key counts as present only when its value has
// the expected type.

std::optional<QString> textAt(const QJsonObject &json, const char *key);
std::optional<double> numberAt(const QJsonObject &json, const char *key);
std::optional<qint64> wholeNumberAt(const QJsonObject &json, const char *key);

/// A list counts only if every element is a map.
std::optional<QList<QJsonObject>> mapsAt(const QJsonObject &json, const char *key);

/// The first of these that is a text, or nothing.
QString firstTextAt(const QJsonObject &json, std::initializer_list<const char *> keys);
