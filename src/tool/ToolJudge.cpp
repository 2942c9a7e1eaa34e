// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolJudge.h"

#include "HomeDirectory.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Tells one file from another, and from itself after any change.
QByteArray fingerprintOf(const QString &path)
{
    struct stat file = {};
    if (stat(QFile::encodeName(path).constData(), &file) != 0)
        return {};
    QByteArray print = path.toUtf8();
    for (const auto number :
         {static_cast<qint64>(file.st_ino), static_cast<qint64>(file.st_size),
          static_cast<qint64>(file.st_mtim.tv_sec), static_cast<qint64>(file.st_mtim.tv_nsec),
          static_cast<qint64>(file.st_ctim.tv_sec), static_cast<qint64>(file.st_ctim.tv_nsec)})
        print += '\n' + QByteArray::number(number);
    return print;
}

/// Whether the system runs the file by means of Python.
bool isPythonScript(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readLine(256).startsWith("#!") && file.seek(0)
        && file.readLine(256).contains("python");
}

StartFailure failureOf(const QString &path, const BoundedRun &run, bool hasPython)
{
    const QByteArray &complaint = run.ending.standardError;
    if (run.hasRunOutOfTime)
        return StartFailure::noAnswer;
    if (run.isSuccess() || run.hasSaidTooMuch)
        return StartFailure::none;
    constexpr int notFound = 127; // env's and the shell's word for a missing program
    const bool isMissing = !run.ending.launchError.isEmpty() || run.ending.status == notFound;
    if (isMissing && !hasPython && isPythonScript(path))
        return StartFailure::noPython;
    if (complaint.contains("unsupported version of Python"))
        return StartFailure::oldPython;
    return StartFailure::other;
}

} // namespace

ToolJudge::ToolJudge(ToolPlaces places, Handler onReport, std::chrono::milliseconds time)
    : m_places(std::move(places))
    , m_onReport(std::move(onReport))
    , m_patience(time)
{
}

ToolJudge::~ToolJudge()
{
    m_processes.post([this] { m_isClosing = true; });
    m_processes.endAll();
}

void ToolJudge::look()
{
    m_processes.post([this] { judge(false); });
}

void ToolJudge::lookAgain()
{
    m_processes.post([this] { judge(true); });
}

void ToolJudge::judge(bool anew)
{
    if (m_isAsking) {
        m_isWanted = true;
        m_isWantedAnew = m_isWantedAnew || anew;
        return;
    }
    const ToolReport located = locateTool(m_places);
    const QByteArray fingerprint =
        fingerprintOf(located.path) + '\n' + fingerprintOf(located.obstaclePath);
    if (!anew && fingerprint == m_fingerprint && located == m_located)
        return;
    m_fingerprint = fingerprint;
    m_located = located;
    ask(located);
}

void ToolJudge::ask(ToolReport report)
{
    if (!report.exists) {
        settle(report);
        return;
    }
    const QFileInfo file(report.path);
    const bool isExecutable = access(QFile::encodeName(report.path).constData(), X_OK) == 0;
    if (file.isDir())
        report.failure = StartFailure::isFolder;
    else if (!file.isFile() || !isExecutable) // reading a pipe, for example, might never end
        report.failure = StartFailure::notExecutable;
    if (report.failure != StartFailure::none) {
        settle(report);
        return;
    }
    m_isAsking = true;
    runBounded(m_processes,
               {.program = report.path,
                .arguments = {u"--version"_s},
                .environment = m_places.environment,
                .folder = toolFolder()},
               m_patience, [this, report](const BoundedRun &run) mutable {
                   m_isAsking = false;
                   const bool hasPython = !programIn(m_places.environment, u"python3"_s).isEmpty();
                   report.failure = failureOf(report.path, run, hasPython);
                   if (report.failure == StartFailure::other)
                       report.failureText = wordsOf(run);
                   if (run.isSuccess())
                       report.version = versionFromOutput(run.output);
                   settle(report);
               });
}

void ToolJudge::settle(const ToolReport &report)
{
    if (m_isClosing)
        return;
    m_onReport(report);
    if (std::exchange(m_isWanted, false))
        judge(std::exchange(m_isWantedAnew, false));
}
