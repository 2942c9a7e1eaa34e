// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureBounds.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>

namespace {

// A little more than the largest pictures of video sites have.
constexpr qint64 mostPixels = 40'000'000;
// A progressive JPEG has about ten. Each costs as much as the picture has pixels.
constexpr int mostScans = 100;
constexpr qint64 mostScannedPixels = 160'000'000;
constexpr int mostCountedScans = 1000;
// How many times wider or higher than the requested size a picture may be after filling
// it.
constexpr int largestExcess = 8;

const QByteArray pngStart("\x89PNG\r\n\x1a\n");

/// Qt's name for the format; empty for formats that are refused.
QByteArray formatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (bytes.startsWith(pngStart))
        return "png";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return "webp";
    return {};
}

bool isWithinBounds(const QSize &original, const QByteArray &format, const QByteArray &bytes)
{
    const qint64 pixels = qint64(original.width()) * original.height();
    if (original.isEmpty() || pixels > mostPixels)
        return false;
    if (format != "jpeg")
        return true;
    const int scans = jpegScans(bytes);
    return scans <= mostScans && scans * pixels <= mostScannedPixels;
}

} // namespace

QImage boundedPicture(const QByteArray &bytes, QSize size)
{
    const QByteArray format = formatOf(bytes);
    if (format.isEmpty())
        return {};
    QBuffer buffer;
    buffer.setData(format == "png" ? barePng(bytes) : bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setDecideFormatFromContent(false);
    const QSize original = reader.size();
    if (!isWithinBounds(original, format, bytes))
        return {};
    // A long thin strip would become huge when it fills the size.
    const QSize scaled = original.scaled(size, Qt::KeepAspectRatioByExpanding);
    if (scaled.width() > largestExcess * size.width()
        || scaled.height() > largestExcess * size.height())
        return {};
    reader.setScaledSize(scaled);
    return reader.read();
}

int jpegScans(const QByteArray &bytes)
{
    constexpr char startOfScan = '\xda';
    constexpr char stuffing = 0;
    int scans = 0;
    qsizetype position = 0;
    while ((position = bytes.indexOf('\xff', position)) >= 0 && position + 1 < bytes.size()
           && scans < mostCountedScans) {
        // Counted wherever it stands, even where a careful reader would skip it: nothing
        // that the decoder accepts may be missed.
        if (bytes[position + 1] == startOfScan)
            ++scans;
        position += bytes[position + 1] == stuffing ? 2 : 1;
    }
    return scans;
}

QByteArray barePng(const QByteArray &bytes)
{
    constexpr qsizetype around = 12; // length, kind and checksum of a chunk
    static const QList<QByteArray> kept{"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
    if (!bytes.startsWith(pngStart))
        return {};
    QByteArray bare = pngStart;
    for (qsizetype position = pngStart.size(); position + around <= bytes.size();) {
        const auto length = qsizetype(qFromBigEndian<quint32>(bytes.constData() + position));
        if (length > bytes.size() - position - around)
            break;
        if (kept.contains(bytes.mid(position + 4, 4)))
            bare += bytes.mid(position, length + around);
        position += length + around;
    }
    return bare;
}
