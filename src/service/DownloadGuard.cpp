// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadGuard.h"

#include "HomeDirectory.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString audioSuffix = u".mp3"_s;

/// The folder of the run's output, absolute.
QString folderOf(const QStringList &arguments)
{
    const QString output = arguments.value(arguments.lastIndexOf(u"-o"_s) + 1);
    return absoluteForTool(output.section(u'/', 0, -2));
}

/// Whether the tool reads a file of this name as a configuration, wherever it lies or in
/// a folder of its own.
bool isConfiguration(const QString &folder, const QString &name)
{
    const QString place = QFileInfo(folder).fileName();
    const bool isToolsFolder = place == u"yt-dlp" || place == u".yt-dlp";
    return name == u"yt-dlp.conf" || name == u"yt-dlp.conf.txt"
        || (isToolsFolder && (name == u"config" || name == u"config.txt"));
}

} // namespace

DownloadGuard::DownloadGuard(const QStringList &arguments)
    : m_folder(folderOf(arguments))
    , m_watch(m_folder,
              [folder = m_folder, isAudio = arguments.contains(u"-x"_s)](const QString &name) {
                  return isConfiguration(folder, name) || (isAudio && name.endsWith(audioSuffix));
              })
{
}

void DownloadGuard::removeHalfMade(const QString &path, const QSet<QString> &finished) const
{
    const QString file = absoluteForTool(path);
    if (file.endsWith(audioSuffix) && m_watch.hasCome(file) && !finished.contains(file))
        QFile::remove(file);
}

QString DownloadGuard::removeConfigurations() const
{
    QString removed;
    const QStringList paths = m_watch.comers();
    for (const QString &path : paths) {
        const QString name = QFileInfo(path).fileName();
        if (isConfiguration(m_folder, name) && QFile::remove(path))
            removed = name;
    }
    return removed.isEmpty()
        ? removed
        : u"The file was named “%1”, which yt-dlp would take for its own settings. "
          u"It was removed."_s.arg(removed);
}
