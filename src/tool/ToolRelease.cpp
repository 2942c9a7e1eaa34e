// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolRelease.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

ReleaseSource ReleaseSource::official()
{
    QFile key(u":/tool/yt-dlp-release-key.asc"_s);
    if (!key.open(QIODevice::ReadOnly))
        qFatal("The key of the tool's releases is not built in");
    return {.folder = QUrl(u"https://github.com/yt-dlp/yt-dlp/releases/latest/download/"_s),
            .key = key.readAll()};
}

QString releasedFile()
{
    return u"yt-dlp"_s;
}

std::optional<QByteArray> sumFor(const QByteArray &sums, const QString &name)
{
    static const QRegularExpression form(u"\\A([0-9a-fA-F]{64}) [ *](.+)\\z"_s);
    const QList<QByteArray> lines = sums.split('\n');
    for (const QByteArray &line : lines) {
        const auto parts = form.match(QString::fromUtf8(line.trimmed()));
        if (parts.hasMatch() && parts.captured(2) == name)
            return parts.captured(1).toLower().toLatin1();
    }
    return {};
}

QByteArray dearmored(const QByteArray &key)
{
    // Between the header lines, which end with an empty one, and the checksum.
    static const QRegularExpression form(u"-----BEGIN PGP PUBLIC KEY BLOCK-----\\s*?\\n(?:[^\\n]*: "
                                         u"[^\\n]*\\n)*\\s*?\\n(.*?)\\n=[^\\n]*\\n"
                                         u"-----END PGP PUBLIC KEY BLOCK-----"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto parts = form.match(QString::fromLatin1(key).remove(u'\r'));
    return QByteArray::fromBase64(parts.captured(1).toLatin1());
}
