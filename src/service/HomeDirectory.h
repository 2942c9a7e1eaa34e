// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The user's home folder, absolute, without a trailing slash: HOME where it is
/// set, so that a test or a demonstration can have one of its own, else the
/// user database's.
QString homeDirectory();
