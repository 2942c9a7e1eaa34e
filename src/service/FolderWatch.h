// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>

/// Remembers what certain files of a folder were like, so that it can be told later which
/// of them have come or changed since. Links are not looked through: what they lead to is
/// somebody else's.
class FolderWatch
{
public:
    using Choice = std::function<bool(const QString &name)>;

    /// Looks at the files that are chosen by their names. The folder need not exist.
    FolderWatch(QString folder, const Choice &isChosen);

    /// Whether the path, absolute, is of a file directly in the folder, chosen by its name,
    /// that was not there or was another one.
    [[nodiscard]] bool hasCome(const QString &path) const;

    /// The paths of all such files.
    [[nodiscard]] QStringList comers() const;

private:
    [[nodiscard]] QStringList chosenNames() const;

    const QString m_folder;
    const Choice m_isChosen;
    QMap<QString, QByteArray> m_before; // by name
};
