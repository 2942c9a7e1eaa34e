// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvEngine.h"

/// The symbol that the program looks up in this library.
extern "C" Q_DECL_EXPORT PlayerEngine *makePlayerEngine(PlayerEngine::Events &events,
                                                        QString &error)
{
    return MpvEngine::create(std::move(events), error).release();
}
