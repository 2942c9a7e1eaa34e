// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

/// The picture in these bytes, large enough to fill the size; null for anything that is
/// not a JPEG, PNG or WebP by its first bytes, or would take longer than about a second.
/// Decoding cannot be interrupted, so the bounds are checked first. Any thread.
QImage boundedPicture(const QByteArray &bytes, QSize size);

/// How many passes over the whole picture a JPEG makes; each costs about as much as the
/// first. Counts no further than 1000.
int jpegScans(const QByteArray &bytes);

/// A PNG reduced to what its pixels need; empty if it is not a PNG. Other chunks may be
/// compressed, and unpack to a thousand times their size.
QByteArray barePng(const QByteArray &bytes);
