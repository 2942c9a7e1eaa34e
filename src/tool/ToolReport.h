// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolVersion.h"

#include <QString>

/// Why a tool does not start.
enum class StartFailure { none, isFolder, notExecutable, noPython, oldPython, noAnswer, other };

/// Why Quillon does not update the tool, if it does not.
enum class Obstacle {
    none,
    comesFirst, ///< another tool comes before the one that Quillon would install
    foreign     ///< somebody else's file is in Quillon's place
};

/// What is known about the tool that would run. A plain value.
struct ToolReport
{
    QString path; ///< where it is, or would be looked for first
    bool exists = false;
    ToolVersion version; ///< of a tool that starts
    StartFailure failure = StartFailure::none;
    QString failureText; ///< the last line that it printed, for `other`
    Obstacle obstacle = Obstacle::none;
    QString obstaclePath; ///< what stands in the way
    QString command;      ///< updates that one, if that is known

    bool operator==(const ToolReport &) const = default;
};

/// Ordered by how much they hinder the user's work, the worst first.
enum class ToolStatus { missing, doesNotStart, tooOld, old, unknown, current };

/// The verdict on a date.
ToolStatus statusOf(const ToolReport &report, QDate today);

/// Whether the program cannot work with it.
bool isUseless(ToolStatus status);

/// Whether another copy of the tool, where Quillon may install one, would help.
bool canBeRenewed(const ToolReport &report, ToolStatus status);

/// "current", "5 months old", "too old for YouTube", "does not start: ...".
QString meaningOf(const ToolReport &report, QDate today);

/// The notice about a tool that is unusable or old, including any obstacle to its update.
/// Empty for one that works.
QString complaintAbout(const ToolReport &report, QDate today);

/// Why Quillon does not update this tool, and what would, if that is known.
QString obstacleText(const ToolReport &report);

/// Identifies a tool whose notice the user has dismissed: path and version.
QString nameOf(const ToolReport &report);
