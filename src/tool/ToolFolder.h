// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// The folder for Quillon's own tool, reserved for one update: locked, so that only one
/// runs on the machine, with a working folder in it that is removed with this object.
/// Nothing is written elsewhere.
///
/// Functions that can fail return a sentence for the user, or nothing.
class ToolFolder
{
    Q_DISABLE_COPY_MOVE(ToolFolder)

public:
    /// `toolPath` is the tool's place.
    explicit ToolFolder(const QString &toolPath);
    ~ToolFolder();

    /// Makes the folder if it is missing, locks it, and removes what a killed update
    /// left.
    [[nodiscard]] std::optional<QString> take();

    /// Where to make a file of this name. After take().
    [[nodiscard]] QString workFile(const QString &name) const;

    /// Puts the finished file into the tool's place. At every moment either the old or
    /// the new one is there, complete. Files that are not Quillon's are not replaced.
    [[nodiscard]] std::optional<QString> install(const QString &finished) const;

    /// Removes what a killed update left, unless another update is running.
    static void clearLeftovers(const QString &toolPath);

private:
    /// 0, or the system's error: EWOULDBLOCK while somebody else has it.
    int lock();

    const QString m_toolPath;
    const QString m_folder;
    const QString m_workFolder;
    int m_descriptor = -1; // of the folder; holds the lock
};

/// "… cannot be written: …" for the file or folder, in the system's words, or a sentence
/// about the full disk.
QString writingFailed(const QString &path, int error);
