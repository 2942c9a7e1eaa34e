// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

/// The picture in these bytes, at least as large as the size, which it fills; null for
/// what is no JPEG, PNG or WebP by its first bytes, and for what would take longer than
/// about a second. A decoding cannot be given up, so the bounds are looked at before.
/// Any thread.
QImage boundedPicture(const QByteArray &bytes, QSize size);

/// How often a JPEG draws its whole picture over; each time costs about as much as the
/// first. No more is counted than 1000.
int jpegScans(const QByteArray &bytes);

/// A PNG with nothing in it but what its pixels need; empty if it is none. What else it
/// may hold, compressed, unpacks to a thousand times its size.
QByteArray barePng(const QByteArray &bytes);
