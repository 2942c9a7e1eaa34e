// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// What "--help" and "--version" print, with a line break at the end; empty for other
/// arguments.
QString answerTo(const QStringList &arguments);

/// What the arguments ask the program to open, and what is wrong with them.
struct CommandLine
{
    QStringList urls{};
    QString error{}; ///< a sentence; empty if there is nothing wrong
};

/// Reads the arguments after the program's name: URLs of the web, at most 100.
CommandLine parseCommandLine(const QStringList &arguments);
