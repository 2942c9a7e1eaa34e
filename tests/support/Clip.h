// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <optional>

using namespace Qt::StringLiterals;

/// The picture of one of ffmpeg's sources, as a stream that others can be put behind.
inline QByteArray madeStream(const QString &source)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"stream.ts"_s);
    QProcess::execute(u"ffmpeg"_s,
                      u"-v error -f lavfi -i %1 -c:v libx264 -preset ultrafast "
                      u"-pix_fmt yuv420p %2"_s.arg(source, path)
                          .split(u' '));
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A moving picture with a tone, as an mp4 that may be played from its beginning;
/// empty if ffmpeg cannot make it. The tone may be longer than the picture.
inline QByteArray madeClip(double seconds, QSize size = {320, 180},
                           const QString &codec = u"libx264"_s, int rate = 25,
                           std::optional<double> soundSeconds = {})
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"clip.mp4"_s);
    QProcess::execute(
        u"ffmpeg"_s,
        u"-v error -f lavfi -i testsrc=size=%3x%4:rate=%6:duration=%1 "
        u"-f lavfi -i sine=duration=%7 -c:v %5 -g 25 -pix_fmt yuv420p -movflags +faststart %2"_s
            .arg(QString::number(seconds), path)
            .arg(size.width())
            .arg(size.height())
            .arg(codec)
            .arg(rate)
            .arg(soundSeconds.value_or(seconds))
            .split(u' '));
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
