// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaPlayer.h"
#include "QuillonApp.h"
#include "StatusKind.h"
#include "VideoInfo.h"

#include <QtQml/qqmlregistration.h>

// Registers types with QML that know nothing of QML themselves.

namespace StatusKindForQml {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(StatusKind)
QML_NAMED_ELEMENT(StatusKind)
} // namespace StatusKindForQml

struct VideoInfoForQml
{
    Q_GADGET
    QML_FOREIGN(VideoInfo)
    QML_VALUE_TYPE(videoInfo)
};

struct QuillonAppForQml
{
    Q_GADGET
    QML_FOREIGN(QuillonApp)
    QML_NAMED_ELEMENT(QuillonApp)
    QML_UNCREATABLE("There is one.")
};

struct MediaPlayerForQml
{
    Q_GADGET
    QML_FOREIGN(MediaPlayer)
    QML_NAMED_ELEMENT(MediaPlayer)
    QML_UNCREATABLE("There is one.")
};
