// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolPlace.h"

#include "HomeDirectory.h"
#include "YTDLPService.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headLength = 256;

QByteArray headOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(headLength) : QByteArray();
}

QByteArray tailOf(const QString &path, qint64 length)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max(qint64{0}, file.size() - length)))
        return {};
    return file.read(length);
}

bool isThere(const QString &path)
{
    return QFile::exists(path) || QFileInfo(path).isSymLink();
}

/// A release as downloaded: a Python zip behind a shebang line, or a self-extracting
/// program.
bool isReleaseFile(const QString &path)
{
    const QByteArray head = headOf(path);
    const qsizetype lineEnd = head.indexOf('\n');
    const bool isZip =
        head.startsWith("#!") && lineEnd > 0 && head.mid(lineEnd + 1).startsWith("PK");
    return isZip
        || head.startsWith("\x7f"
                           "ELF");
}

QString quotedForShell(const QString &text)
{
    static const QRegularExpression plain(u"\\A[\\w./+-]+\\z"_s);
    if (plain.match(text).hasMatch())
        return text;
    return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

} // namespace

ToolPlaces ToolPlaces::standard()
{
    return {.searchPaths = YTDLPService::standardSearchPaths(),
            .ownPath = homeDirectory() + u"/.local/bin/yt-dlp"_s,
            .environment = YTDLPService::processEnv()};
}

QByteArray ownMark(const QByteArray &releaseSum)
{
    return "Put together by Quillon from the release with the SHA-256 sum " + releaseSum;
}

bool isOwn(const QString &path)
{
    constexpr qint64 sumLength = 64;
    const QFileInfo file(path);
    if (!file.isFile() || file.isSymLink())
        return false;
    const QByteArray start = ownMark({});
    return tailOf(path, start.size() + sumLength).startsWith(start);
}

QString renewalCommand(const QString &path)
{
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    if (!file.isFile())
        return {};
    const bool isWritable = file.isWritable() && QFileInfo(file.path()).isWritable();
    if (file.filePath().contains(u"/pipx/venvs/"))
        return isWritable ? u"pipx upgrade yt-dlp"_s : QString();
    if (path.startsWith(u"/opt/homebrew/") || file.filePath().contains(u"/Cellar/"))
        return u"brew upgrade yt-dlp"_s;
    return isReleaseFile(file.filePath()) ? selfUpdateCommand(path, isWritable) : QString();
}

QString selfUpdateCommand(const QString &path, bool isWritable)
{
    return (isWritable ? QString() : u"sudo "_s) + quotedForShell(path) + u" -U"_s;
}

QString programIn(const QMap<QString, QString> &environment, const QString &name)
{
    return QStandardPaths::findExecutable(
        name, environment.value(u"PATH"_s).split(u':', Qt::SkipEmptyParts));
}

ToolReport locateTool(const ToolPlaces &places)
{
    const QStringList &paths = places.searchPaths;
    const auto found = std::find_if(paths.begin(), paths.end(),
                                    [](const QString &each) { return QFile::exists(each); });
    ToolReport report;
    report.exists = found != paths.end();
    report.path = report.exists ? *found : paths.first();

    const auto own = std::find(paths.begin(), paths.end(), places.ownPath);
    if (found < own) {
        report.obstacle = Obstacle::comesFirst;
        report.obstaclePath = *found;
    } else if (isThere(places.ownPath) && !isOwn(places.ownPath)) {
        report.obstacle = Obstacle::foreign;
        report.obstaclePath = places.ownPath;
    }
    if (report.obstacle != Obstacle::none)
        report.command = renewalCommand(report.obstaclePath);
    return report;
}
