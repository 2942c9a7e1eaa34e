// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <optional>

/// A moving picture with a tone, as an mp4 that may be played from its beginning;
/// empty if ffmpeg cannot make it. The tone may be longer than the picture.
inline QByteArray madeClip(double seconds, QSize size = {320, 180},
                           const QString &codec = QStringLiteral("libx264"), int rate = 25,
                           std::optional<double> soundSeconds = {})
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("clip.mp4"));
    QProcess::execute(
        QStringLiteral("ffmpeg"),
        QStringLiteral(
            "-v error -f lavfi -i testsrc=size=%3x%4:rate=%6:duration=%1 "
            "-f lavfi -i sine=duration=%7 -c:v %5 -g 25 -pix_fmt yuv420p -movflags +faststart %2")
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
