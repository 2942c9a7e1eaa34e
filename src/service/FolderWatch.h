// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>

/// Remembers certain files of a folder, to tell later which of them are new or have
/// changed since. Links are not followed: what they lead to belongs to somebody else.
class FolderWatch
{
public:
    using Choice = std::function<bool(const QString &name)>;

    /// Looks at the files with the chosen names. The folder need not exist.
    FolderWatch(QString folder, const Choice &isChosen);

    /// Whether the absolute path names a file directly in the folder, with a chosen name,
    /// that is new or has changed.
    [[nodiscard]] bool hasCome(const QString &path) const;

    /// The paths of all such files.
    [[nodiscard]] QStringList comers() const;

private:
    [[nodiscard]] QStringList chosenNames() const;

    const QString m_folder;
    const Choice m_isChosen;
    QMap<QString, QByteArray> m_before; // by name
};
