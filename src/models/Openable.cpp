// SPDX-License-Identifier: GPL-3.0-or-later
#include "Openable.h"

#include <QFileInfo>
#include <QStringList>
#include <QUrl>

using namespace Qt::StringLiterals;

bool isOfTheWeb(const QString &url)
{
    const QUrl parsed(url.trimmed(), QUrl::StrictMode);
    const QString scheme = parsed.scheme();
    return (scheme == u"http" || scheme == u"https") && !parsed.host().isEmpty();
}

bool isPlayableFile(const QString &path)
{
    static const QStringList extensions{u"mp4"_s,  u"m4v"_s,  u"mkv"_s, u"webm"_s,
                                        u"mov"_s,  u"mp3"_s,  u"m4a"_s, u"ogg"_s,
                                        u"opus"_s, u"flac"_s, u"wav"_s, u"aac"_s};
    const QFileInfo file(path);
    return extensions.contains(file.suffix().toLower()) && file.isFile() && !file.isExecutable();
}
