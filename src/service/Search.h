// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SearchResult.h"
#include "YTDLPError.h"

#include <QJsonObject>
#include <QList>
#include <QUrl>

/// One result; nothing without an identifier. Whatever else is missing falls back to a
/// fixed text, to the site's own thumbnail, or to nothing.
std::optional<SearchResult> parseSearchResult(const QJsonObject &json);

/// What the tool printed for a search, in its order: one object per line, which is a
/// result or has a list of them. Unreadable lines are skipped.
QList<SearchResult> resultsFromOutput(const QByteArray &output);

/// What the tool printed for a stream: the URL in the first line.
Reply<QUrl> streamFromOutput(const QByteArray &output);
