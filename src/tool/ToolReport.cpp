// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolReport.h"

using namespace Qt::StringLiterals;

namespace {

// As the tool itself counts: there is a release at least this often.
constexpr qint64 mostDaysOfCurrent = 90;

QString failureTextOf(const ToolReport &report)
{
    switch (report.failure) {
    case StartFailure::none:
        return {};
    case StartFailure::isFolder:
        return u"it is a folder"_s;
    case StartFailure::notExecutable:
        return u"it is not executable"_s;
    case StartFailure::noPython:
        return u"Python is not installed"_s;
    case StartFailure::oldPython:
        return u"it needs a newer Python"_s;
    case StartFailure::noAnswer:
        return u"it does not answer"_s;
    case StartFailure::other:
        return report.failureText.isEmpty() ? u"it ends at once"_s : report.failureText;
    }
    Q_UNREACHABLE();
}

/// Whether not the tool but something that it needs has failed.
bool lacksPython(const ToolReport &report)
{
    return report.failure == StartFailure::noPython || report.failure == StartFailure::oldPython;
}

QString statementAbout(const ToolReport &report, QDate today)
{
    switch (statusOf(report, today)) {
    case ToolStatus::missing:
        return u"yt-dlp is not installed. Quillon needs it for everything that it does."_s;
    case ToolStatus::doesNotStart:
        if (report.failure == StartFailure::isFolder) {
            return u"yt-dlp cannot run: %1 is a folder, which hides every other yt-dlp."_s.arg(
                report.path);
        }
        if (lacksPython(report))
            return u"yt-dlp does not start: it needs Python 3.10 or newer."_s;
        return u"yt-dlp does not start: %1."_s.arg(failureTextOf(report));
    case ToolStatus::tooOld:
        return u"YouTube no longer answers yt-dlp %1."_s.arg(report.version.text);
    case ToolStatus::old:
        return u"yt-dlp is %1. A newer one may help."_s.arg(
            ageText(daysOld(report.version, today)));
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
        return u"not installed"_s;
    case ToolStatus::doesNotStart:
        return u"does not start: "_s + failureTextOf(report);
    case ToolStatus::tooOld:
        return u"too old for YouTube"_s;
    case ToolStatus::old:
        return ageText(daysOld(report.version, today));
    case ToolStatus::unknown:
        return u"of unknown age"_s;
    case ToolStatus::current:
        return u"current"_s;
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
        return (isKnown ? u"It is at %1; this renews it:"_s
                        : u"It is at %1, where Quillon changes nothing."_s)
            .arg(report.obstaclePath);
    case Obstacle::foreign:
        return (isKnown ? u"Quillon did not put %1 there; this renews it:"_s
                        : u"Quillon did not put %1 there, so it stays as it is."_s)
            .arg(report.obstaclePath);
    }
    Q_UNREACHABLE();
}

QString nameOf(const ToolReport &report)
{
    return u"%1 %2"_s.arg(report.path, report.version.text).trimmed();
}
