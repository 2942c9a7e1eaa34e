// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "HistoryItem.h"

#include <QByteArray>
#include <QList>

#include <optional>

/// The history as UTF-8 JSON: a compact array of objects with their keys in the
/// order of the record's fields, upper-case UUIDs, dates as seconds since 2001,
/// and no "savedPath" where there is none. Nothing when a date is not finite.
/// May be called on any thread.
std::optional<QByteArray> encodeHistory(const QList<HistoryItem> &history);

/// The records of such a document. Nothing when it is not a JSON array of objects, or
/// when any record lacks a key or holds a value of another type.
std::optional<QList<HistoryItem>> decodeHistory(const QByteArray &document);
