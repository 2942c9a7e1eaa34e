// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The user's home folder, absolute, without a trailing slash: HOME if it is set, which
/// lets tests and demonstrations have their own, else the user database's entry.
QString homeDirectory();

/// Where the tool is started, since it reads a configuration from the current folder, and
/// that of the home folder is the user's own. The root folder if there is no home.
QString toolFolder();

/// A path as the tool understands it, absolute and normalized.
QString absoluteForTool(const QString &path);
