// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "VideoShape.h"

struct mpv_event_property;
struct mpv_node;

/// The number that a map of mpv's has by this name, or -1.
qint64 numberIn(const mpv_node &node, const char *name);

/// What mpv tells of the video that it plays; empty if there is none.
VideoShape videoShapeIn(const mpv_event_property &property);
