// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolReport.h"

namespace {

// As the tool itself counts: a release is made at least as often.
constexpr qint64 mostDaysOfCurrent = 90;

QString failureTextOf(const ToolReport &report)
{
    switch (report.failure) {
    case StartFailure::none:
        return {};
    case StartFailure::isFolder:
        return QStringLiteral("it is a folder");
    case StartFailure::notExecutable:
        return QStringLiteral("it is not executable");
    case StartFailure::noPython:
        return QStringLiteral("Python is not installed");
    case StartFailure::oldPython:
        return QStringLiteral("it needs a newer Python");
    case StartFailure::noAnswer:
        return QStringLiteral("it does not answer");
    case StartFailure::other:
        return report.failureText.isEmpty() ? QStringLiteral("it ends at once")
                                            : report.failureText;
    }
    Q_UNREACHABLE();
}

/// Whether what failed is not the tool but what it needs.
bool lacksPython(const ToolReport &report)
{
    return report.failure == StartFailure::noPython || report.failure == StartFailure::oldPython;
}

QString statementAbout(const ToolReport &report, QDate today)
{
    switch (statusOf(report, today)) {
    case ToolStatus::missing:
        return QStringLiteral(
            "yt-dlp is not installed. Quillon needs it for everything that it does.");
    case ToolStatus::doesNotStart:
        if (report.failure == StartFailure::isFolder) {
            return QStringLiteral(
                       "yt-dlp cannot run: %1 is a folder, which hides every other yt-dlp.")
                .arg(report.path);
        }
        if (lacksPython(report))
            return QStringLiteral("yt-dlp does not start: it needs Python 3.10 or newer.");
        return QStringLiteral("yt-dlp does not start: %1.").arg(failureTextOf(report));
    case ToolStatus::tooOld:
        return QStringLiteral("YouTube no longer answers yt-dlp %1.").arg(report.version.text);
    case ToolStatus::old:
        return QStringLiteral("yt-dlp is %1. A newer one may help.")
            .arg(ageText(daysOld(report.version, today)));
    case ToolStatus::unknown:
    case ToolStatus::current:
        return {};
    }
    Q_UNREACHABLE();
}

} // namespace

ToolStatus statusOf(const ToolReport &report, QDate today)
{
    if (!report.exists)
        return ToolStatus::missing;
    if (report.failure != StartFailure::none)
        return ToolStatus::doesNotStart;
    if (!report.version.isDated())
        return ToolStatus::unknown;
    if (report.version.date < oldestWorkingRelease())
        return ToolStatus::tooOld;
    return daysOld(report.version, today) > mostDaysOfCurrent ? ToolStatus::old
                                                              : ToolStatus::current;
}

bool isUseless(ToolStatus status)
{
    return status == ToolStatus::missing || status == ToolStatus::doesNotStart
        || status == ToolStatus::tooOld;
}

bool canBeRenewed(const ToolReport &report, ToolStatus status)
{
    const bool helps = isUseless(status) || status == ToolStatus::old;
    return helps && report.obstacle == Obstacle::none && !lacksPython(report);
}

QString meaningOf(const ToolReport &report, QDate today)
{
    switch (statusOf(report, today)) {
    case ToolStatus::missing:
        return QStringLiteral("not installed");
    case ToolStatus::doesNotStart:
        return QStringLiteral("does not start: ") + failureTextOf(report);
    case ToolStatus::tooOld:
        return QStringLiteral("too old for YouTube");
    case ToolStatus::old:
        return ageText(daysOld(report.version, today));
    case ToolStatus::unknown:
        return QStringLiteral("of unknown age");
    case ToolStatus::current:
        return QStringLiteral("current");
    }
    Q_UNREACHABLE();
}

QString complaintAbout(const ToolReport &report, QDate today)
{
    const QString statement = statementAbout(report, today);
    const bool isWhole =
        statement.isEmpty() || lacksPython(report) || report.failure == StartFailure::isFolder;
    return isWhole ? statement : (statement + u' ' + obstacleText(report)).trimmed();
}

QString obstacleText(const ToolReport &report)
{
    const bool isKnown = !report.command.isEmpty();
    switch (report.obstacle) {
    case Obstacle::none:
        return {};
    case Obstacle::comesFirst:
        return (isKnown ? QStringLiteral("It is at %1; this renews it:")
                        : QStringLiteral("It is at %1, where Quillon changes nothing."))
            .arg(report.obstaclePath);
    case Obstacle::foreign:
        return (isKnown ? QStringLiteral("Quillon did not put %1 there; this renews it:")
                        : QStringLiteral("Quillon did not put %1 there, so it stays as it is."))
            .arg(report.obstaclePath);
    }
    Q_UNREACHABLE();
}

QString nameOf(const ToolReport &report)
{
    return QStringLiteral("%1 %2").arg(report.path, report.version.text).trimmed();
}
