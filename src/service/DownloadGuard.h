// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FolderWatch.h"

#include <QSet>
#include <QStringList>

/// Tidies up after one download. What the tool prints is partly chosen by the page that
/// it downloads from, so nothing is removed on its word alone: the file must be proved to
/// be this run's. Made before the run begins; one thread.
class DownloadGuard
{
public:
    /// `arguments` are the run's.
    explicit DownloadGuard(const QStringList &arguments);

    /// Removes the file that the tool says it was making when the run failed, if that is
    /// an audio file of this run that no other run has finished.
    void removeHalfMade(const QString &path, const QSet<QString> &finished) const;

    /// Removes a "video" that the tool would read as a configuration, and run commands
    /// from, the next time. Returns an explanation; nothing if there was no such file.
    [[nodiscard]] QString removeConfigurations() const;

private:
    const QString m_folder;    // that the run writes to
    const FolderWatch m_watch; // of audio files in audio runs, and of configurations
};
