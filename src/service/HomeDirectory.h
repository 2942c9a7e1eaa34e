// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The user's home folder, absolute, without a trailing slash: HOME where it is
/// set, so that a test or a demonstration can have one of its own, else the
/// user database's.
QString homeDirectory();

/// Where the tool is started: it reads a configuration from the folder that it is started
/// in, and that of the home folder is the user's own. The root folder for want of a home.
QString toolFolder();

/// A path as the tool means it, absolute and without detours.
QString absoluteForTool(const QString &path);
