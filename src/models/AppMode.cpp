// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppMode.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString rawValue(AppMode mode)
{
    switch (mode) {
    case AppMode::single:
        return u"Single"_s;
    case AppMode::multi:
        return u"Multi"_s;
    case AppMode::browse:
        return u"Browse"_s;
    }
    Q_UNREACHABLE();
}

std::optional<AppMode> appModeFromRawValue(const QString &text)
{
    const auto *const mode = std::find_if(allAppModes.begin(), allAppModes.end(),
                                          [&](AppMode each) { return rawValue(each) == text; });
    return mode == allAppModes.end() ? std::nullopt : std::optional(*mode);
}
