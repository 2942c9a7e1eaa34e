// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SearchResult.h"
#include "YTDLPError.h"

#include <QJsonObject>
#include <QList>
#include <QUrl>

/// One result; none without an identifier. What else is missing falls back to a
/// fixed text, to the site's own thumbnail, or to nothing.
std::optional<SearchResult> parseSearchResult(const QJsonObject &json);

/// What the tool printed for a search, in its order: an object a line, which is a
/// result or has a list of them. Lines that cannot be read are skipped.
QList<SearchResult> resultsFromOutput(const QByteArray &output);

/// What the tool printed for a stream: the URL in the first line.
Reply<QUrl> streamFromOutput(const QByteArray &output);
