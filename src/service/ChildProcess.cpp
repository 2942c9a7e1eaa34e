// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChildProcess.h"

#include "ProcessGroup.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

// Long enough for a well-behaved tool to tidy up, short enough not to delay the end of a
// session.
constexpr auto endGrace = 1000ms;
constexpr auto groupWatchInterval = 10ms;

QProcessEnvironment processEnvironment(const QMap<QString, QString> &variables)
{
    QProcessEnvironment environment;
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment;
}

} // namespace

ChildProcess::ChildProcess(Command command, std::shared_ptr<ProcessHandle> handle,
                           OutputHandler onOutput, EndHandler onEnd)
    : m_command(std::move(command))
    , m_handle(std::move(handle))
    , m_onOutput(std::move(onOutput))
    , m_onEnd(std::move(onEnd))
{
    m_process.setProcessEnvironment(processEnvironment(m_command.environment));
    m_process.setWorkingDirectory(m_command.folder);
    m_process.setProgram(m_command.program);
    m_process.setArguments(m_command.arguments);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([parent = getpid()] {
        // Between fork and exec: only what is safe in a signal handler.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        setpgid(0, 0);
        if (getppid() != parent)
            _exit(127);
    });

    connect(&m_process, &QProcess::readyReadStandardOutput, this,
            [this] { m_onOutput(m_process.readAllStandardOutput()); });
    connect(&m_process, &QProcess::readyReadStandardError, this, &ChildProcess::readStandardError);
    connect(&m_process, &QProcess::finished, this, &ChildProcess::handleFinished);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return; // a crash is reported as finished, too
        m_ending.launchError = m_process.errorString();
        settle();
    });

    m_groupWatch.setInterval(groupWatchInterval);
    connect(&m_groupWatch, &QTimer::timeout, this, &ChildProcess::settleOnceGroupIsGone);
    m_grace.setSingleShot(true);
    m_grace.setInterval(endGrace);
    connect(&m_grace, &QTimer::timeout, this, [this] { signalGroup(SIGKILL); });
}

void ChildProcess::start()
{
    // Checked before a process is made only to fail, and reported in the system's own
    // words.
    if (access(QFile::encodeName(m_command.program).constData(), X_OK) != 0) {
        m_ending.launchError = qt_error_string(errno);
        settle();
        return;
    }
    m_process.start();
    // Nobody has waited for the child yet: that happens in this thread's event loop.
    if (m_process.processId() > 0)
        m_handle->bind(m_process.processId());
}

void ChildProcess::end()
{
    if (m_isEnding)
        return;
    m_isEnding = true;
    signalGroup(SIGTERM);
    signalGroup(SIGCONT); // a stopped process dies of SIGTERM only when it continues
    m_grace.start();
}

void ChildProcess::readStandardError()
{
    m_ending.standardError += m_process.readAllStandardError();
    if (m_ending.standardError.size() <= m_command.mostStandardError)
        return;
    m_ending.standardError.truncate(m_command.mostStandardError);
    end();
}

void ChildProcess::handleFinished(int status, QProcess::ExitStatus exitStatus)
{
    m_ending.status = status;
    m_ending.wasSignalled = exitStatus == QProcess::CrashExit;
    m_onOutput(m_process.readAllStandardOutput());
    readStandardError();
    // A killed tool leaves children that nobody else would end.
    if (m_ending.wasSignalled && isProcessGroupAlive(m_handle->processIdentifier()))
        end();
    if (m_isEnding)
        m_groupWatch.start();
    else
        settle();
}

void ChildProcess::settleOnceGroupIsGone()
{
    if (isProcessGroupAlive(m_handle->processIdentifier()))
        return;
    m_groupWatch.stop();
    m_grace.stop();
    settle();
}

void ChildProcess::signalGroup(int signal) const
{
    if (m_handle->processIdentifier() > 0)
        kill(static_cast<pid_t>(-m_handle->processIdentifier()), signal);
}

void ChildProcess::settle()
{
    deleteLater();
    m_onEnd(m_ending);
}
