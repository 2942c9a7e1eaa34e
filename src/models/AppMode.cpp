// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppMode.h"

#include <algorithm>

QString rawValue(AppMode mode)
{
    switch (mode) {
    case AppMode::single:
        return QStringLiteral("Single");
    case AppMode::multi:
        return QStringLiteral("Multi");
    case AppMode::browse:
        return QStringLiteral("Browse");
    }
    Q_UNREACHABLE();
}

std::optional<AppMode> appModeFromRawValue(const QString &text)
{
    const auto *const mode = std::find_if(allAppModes.begin(), allAppModes.end(),
                                          [&](AppMode each) { return rawValue(each) == text; });
    return mode == allAppModes.end() ? std::nullopt : std::optional(*mode);
}
