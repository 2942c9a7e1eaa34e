// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The desktop's event sounds. Main thread; returns at once, fails silently.
class SoundPlayer
{
public:
    virtual ~SoundPlayer() = default;

    /// The sound for something completed.
    virtual void playCompletion() = 0;
};
