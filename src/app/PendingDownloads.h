// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PendingDownload.h"

#include <QList>

class Preferences;

/// What runs have still to download, kept in the preferences, so that the next start can
/// offer what was interrupted. Main thread.
class PendingDownloads
{
public:
    /// The preferences outlive it.
    explicit PendingDownloads(Preferences &preferences);

    /// What an earlier start of the program has left.
    [[nodiscard]] const QList<PendingDownload> &interrupted() const { return m_interrupted; }
    void forgetInterrupted();

    /// A run begins; returns a number for it.
    int begin(const QList<PendingDownload> &downloads);
    /// The run's first file of those that are left has ended, well or not.
    void endFile(int run);
    void endRun(int run);
    /// Forgets everything, also what is running.
    void clear();

private:
    struct Entry
    {
        int run;
        PendingDownload download;
    };

    void load();
    void save();

    Preferences &m_preferences;
    QList<PendingDownload> m_interrupted;
    QList<Entry> m_entries;
    int m_lastRun = 0;
};
