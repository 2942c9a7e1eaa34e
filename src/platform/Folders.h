// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The user's standard folders.
class Folders
{
public:
    virtual ~Folders() = default;

    /// The folders for downloads, the preferred one first; possibly none.
    [[nodiscard]] virtual QStringList downloads() const = 0;
};
