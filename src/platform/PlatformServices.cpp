// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlatformServices.h"

#include "DesktopFileViewer.h"
#include "DesktopFolders.h"
#include "DesktopNotifier.h"
#include "DesktopSoundPlayer.h"
#include "PlayerPlugin.h"

PlatformServices PlatformServices::desktop()
{
    return {.notifier = std::make_shared<DesktopNotifier>(),
            .sound = std::make_shared<DesktopSoundPlayer>(),
            .fileViewer = std::make_shared<DesktopFileViewer>(),
            .folders = std::make_shared<DesktopFolders>(),
            .playerEngine = loadPlayerPlugin};
}
