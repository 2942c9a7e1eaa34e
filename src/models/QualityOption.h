// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaFormat.h"

#include <QList>
#include <QString>

/// One choice of download quality.
struct QualityOption
{
    QString id;           ///< stable key: "best", "1080p", …
    QString label;        ///< what the chip reads
    QString formatString; ///< the tool's format selector, handed to it behind "-f"
    QString outputExt;    ///< the container's extension
    bool isAudioOnly = false;

    bool operator==(const QualityOption &other) const = default;

    /// Every video quality, best first: what a single video offers.
    static const QList<QualityOption> &mp4Options();

    /// The shorter list that a queue offers: without 4K and 1440p.
    static const QList<QualityOption> &queueOptions();

    /// The best quality of a format. For MP3 it is the only one.
    static QualityOption best(MediaFormat format);
};
