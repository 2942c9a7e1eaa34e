// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

/// The container that a download ends in.
enum class MediaFormat { mp4, mp3 };

inline constexpr std::array allMediaFormats{MediaFormat::mp4, MediaFormat::mp3};

/// The format's name as shown to the user.
QString rawValue(MediaFormat format);
