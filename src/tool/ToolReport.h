// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolVersion.h"

#include <QString>

/// Why a tool does not start.
enum class StartFailure { none, isFolder, notExecutable, noPython, oldPython, noAnswer, other };

/// Why Quillon does not renew the tool, if it does not.
enum class Obstacle {
    none,
    comesFirst, ///< a tool is found before the one that Quillon would put there
    foreign     ///< what is at the place of Quillon's own was put there by somebody else
};

/// What is known of the tool that would run. A plain value.
struct ToolReport
{
    QString path; ///< where it is, or would be looked for first
    bool exists = false;
    ToolVersion version; ///< of one that starts
    StartFailure failure = StartFailure::none;
    QString failureText; ///< the last line that it printed, for `other`
    Obstacle obstacle = Obstacle::none;
    QString obstaclePath; ///< what stands in the way
    QString command;      ///< renews that one, if it can be told

    bool operator==(const ToolReport &) const = default;
};

/// In the order in which they hinder the user's work, the worst first.
enum class ToolStatus { missing, doesNotStart, tooOld, old, unknown, current };

/// The verdict on a date.
ToolStatus statusOf(const ToolReport &report, QDate today);

/// Whether the program cannot do its work with it.
bool isUseless(ToolStatus status);

/// Whether another copy of the tool, put where Quillon may put one, would help.
bool canBeRenewed(const ToolReport &report, ToolStatus status);

/// "current", "5 months old", "too old for YouTube", "does not start: ...".
QString meaningOf(const ToolReport &report, QDate today);

/// What a notice says of a tool that is of no use, or is old; with what is in the way
/// of its renewal, if anything is. Empty for one that works.
QString complaintAbout(const ToolReport &report, QDate today);

/// Why Quillon does not renew this tool, and what does if that can be told.
QString obstacleText(const ToolReport &report);

/// Names a tool whose notice the user does not want again: path and version.
QString nameOf(const ToolReport &report);
