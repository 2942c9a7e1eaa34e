// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLList.h"

#include "Openable.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostURLs = 100;
constexpr qint64 mostBytes = 64LL * 1024;

QStringList trimmedLines(const QString &text)
{
    QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.trimmed();
    return lines;
}

QStringList urlsInFile(const QString &path)
{
    static const QStringList extensions{u"url"_s, u"webloc"_s, u"txt"_s};
    static const QRegularExpression url(u"https?://[^\\s<>\"]+"_s);
    const QFileInfo info(path);
    QFile file(path);
    if (!extensions.contains(info.suffix().toLower()) || !info.isFile()
        || !file.open(QIODevice::ReadOnly))
        return {};
    const QString content = QString::fromUtf8(file.read(mostBytes));
    QStringList found;
    for (auto match = url.globalMatch(content); match.hasNext();) {
        // A link in Apple's form names its document type first.
        if (const QString text = match.next().captured(); !text.contains(u"apple.com/DTDs"))
            found.append(text);
    }
    return found;
}

} // namespace

QStringList webURLsIn(const QString &text)
{
    const QStringList lines = trimmedLines(text);
    QStringList found;
    for (const QString &line : lines) {
        if (isOfTheWeb(line) && found.size() < mostURLs)
            found.append(line);
    }
    return found;
}

QStringList webURLsInDrop(const QString &text)
{
    QStringList lines;
    const QStringList dropped = trimmedLines(text);
    for (const QString &line : dropped) {
        const QUrl url(line, QUrl::StrictMode);
        if (url.isLocalFile())
            lines += urlsInFile(url.toLocalFile());
        else
            lines.append(line);
    }
    return webURLsIn(lines.join(u'\n'));
}
