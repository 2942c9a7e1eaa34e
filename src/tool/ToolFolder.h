// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// The folder that Quillon puts its tool into, taken for one update: locked, so that
/// there is one at a time on the machine, and with a folder in it to work in, which goes
/// with this object. Nothing is written elsewhere.
///
/// The functions that can fail return a sentence for the user, or nothing.
class ToolFolder
{
    Q_DISABLE_COPY_MOVE(ToolFolder)

public:
    /// `toolPath` is the tool's place.
    explicit ToolFolder(const QString &toolPath);
    ~ToolFolder();

    /// Makes the folder if it is not there, locks it, and clears what an update left that
    /// was killed.
    [[nodiscard]] std::optional<QString> take();

    /// Where a file of this name is to be made. After take().
    [[nodiscard]] QString workFile(const QString &name) const;

    /// Puts the finished file into the tool's place. At every moment the old one or the
    /// new one is there, whole. What is not Quillon's is not replaced.
    [[nodiscard]] std::optional<QString> install(const QString &finished) const;

    /// Clears what an update left that was killed, unless another one is under way.
    static void clearLeftovers(const QString &toolPath);

private:
    /// 0, or the system's error: EWOULDBLOCK while somebody else has it.
    int lock();

    const QString m_toolPath;
    const QString m_folder;
    const QString m_workFolder;
    int m_descriptor = -1; // of the folder; holds the lock
};

/// "… cannot be written: …" for the file or folder, in the system's words; when there is
/// no room, that there is none.
QString writingFailed(const QString &path, int error);
