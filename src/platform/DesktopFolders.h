// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Folders.h"

/// The user's standard folders, as the desktop names them.
class DesktopFolders : public Folders
{
public:
    [[nodiscard]] QStringList downloads() const override;
};
