// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlayerEngine.h"

/// How large a video is.
struct VideoShape
{
    QSize pixels;      ///< as it is stored
    QSize proportions; ///< as it is shown: its pixels need not be square

    bool operator==(const VideoShape &other) const = default;
};

/// The size in which a picture of this video is drawn for those who want it so; empty if
/// it is not drawn.
QSize drawnSize(const VideoShape &video, const PictureWish &wish);
