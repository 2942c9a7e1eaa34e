// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "VideoInfo.h"
#include "YTDLPError.h"

#include <QByteArray>
#include <QJsonObject>

/// One video's metadata. A key counts as present only when its value is of the
/// expected kind; what is missing falls back to a fixed text or to nothing.
VideoInfo parseVideoInfo(const QJsonObject &json, const QString &url);

/// The URL of the widest thumbnail that is not wider than 640 pixels, else
/// of the widest; possibly empty.
QString bestThumbnail(const QJsonObject &json);

/// What the tool printed for one video: one JSON object.
Reply<VideoInfo> videoFromOutput(const QByteArray &output, const QString &url);

/// What the tool printed for a playlist: an object a line. Lines that cannot be
/// read are skipped.
VideoInfo playlistFromOutput(const QByteArray &output, const QString &url);
