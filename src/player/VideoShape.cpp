// SPDX-License-Identifier: GPL-3.0-or-later
#include "VideoShape.h"

QSize drawnSize(const VideoShape &video, const PictureWish &wish)
{
    if (video.pixels.isEmpty() || video.proportions.isEmpty() || wish.size.isEmpty())
        return {};
    const QSize fitted = fittedPicture(video.proportions, wish.size);
    return wish.isForGraphicsCard ? fitted.boundedTo(video.pixels) : fitted;
}
