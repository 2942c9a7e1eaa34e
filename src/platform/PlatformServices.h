// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FileViewer.h"
#include "Folders.h"
#include "Notifier.h"
#include "PlayerEngine.h"
#include "SoundPlayer.h"

#include <memory>

/// What the application state needs of the desktop; tests replace it with stand-ins.
struct PlatformServices
{
    std::shared_ptr<Notifier> notifier;
    std::shared_ptr<SoundPlayer> sound;
    std::shared_ptr<FileViewer> fileViewer;
    std::shared_ptr<Folders> folders;
    PlayerEngineFactory playerEngine;

    /// Those of the real desktop.
    static PlatformServices desktop();
};
