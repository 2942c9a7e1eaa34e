// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "VideoInfo.h"
#include "YTDLPError.h"

#include <QByteArray>
#include <QJsonObject>

/// One video's metadata. A key counts as present only when its value has the expected
/// type; whatever is missing falls back to a fixed text or to nothing.
VideoInfo parseVideoInfo(const QJsonObject &json, const QString &url);

/// The URL of the widest thumbnail of at most 640 pixels, else of the widest; may be
/// empty.
QString bestThumbnail(const QJsonObject &json);

/// What the tool printed for one video: one JSON object.
Reply<VideoInfo> videoFromOutput(const QByteArray &output, const QString &url);

/// What the tool printed for a playlist: one object per line. Unreadable lines are
/// skipped.
VideoInfo playlistFromOutput(const QByteArray &output, const QString &url);
