// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Folders.h"

/// The folders that the user's desktop names.
class DesktopFolders : public Folders
{
public:
    [[nodiscard]] QStringList downloads() const override;
};
