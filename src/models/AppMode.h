// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <optional>

/// What the main window works on.
enum class AppMode { single, multi, browse };

/// Every mode, in the order in which the mode switch shows them.
inline constexpr std::array allAppModes{AppMode::single, AppMode::multi, AppMode::browse};

/// The mode's name as shown to the user.
QString rawValue(AppMode mode);

/// The mode with exactly this name, if there is one.
std::optional<AppMode> appModeFromRawValue(const QString &text);
