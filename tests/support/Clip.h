// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

/// A moving picture with a tone, as an mp4 that may be played from its beginning;
/// empty if ffmpeg cannot make it.
inline QByteArray madeClip(int seconds, QSize size = {320, 180},
                           const QString &codec = QStringLiteral("libx264"), int rate = 25)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("clip.mp4"));
    const QString duration = QStringLiteral("duration=%1").arg(seconds);
    QProcess::execute(
        QStringLiteral("ffmpeg"),
        QStringLiteral("-v error -f lavfi -i testsrc=size=%3x%4:rate=%6:%1 -f lavfi "
                       "-i sine=%1 -c:v %5 -g 25 -pix_fmt yuv420p -movflags +faststart %2")
            .arg(duration, path)
            .arg(size.width())
            .arg(size.height())
            .arg(codec)
            .arg(rate)
            .split(u' '));
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
