// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ProcessHandle.h"

#include <QMap>
#include <QObject>
#include <QProcess>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

/// How a child process ended.
struct ProcessEnding
{
    /// The system's words when the process could not be launched, else empty.
    QString launchError;
    /// The exit status, or the number of the signal that ended the process.
    int status = 0;
    bool wasSignalled = false;
    QByteArray standardError; ///< whole, unless the command limits it

    [[nodiscard]] bool isSuccess() const
    {
        return launchError.isEmpty() && !wasSignalled && status == 0;
    }
};

/// One run of a program that cannot outlive Quillon: the kernel kills it when this
/// thread ends, however that happens, and end() also ends its children. It
/// lives on one thread with an event loop; only its handle is shared.
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    using OutputHandler = std::function<void(const QByteArray &bytes)>;
    using EndHandler = std::function<void(const ProcessEnding &ending)>;

    struct Command
    {
        QString program;
        QStringList arguments;
        QMap<QString, QString> environment;
        QString folder; ///< to start in
        /// Limits standard error, in bytes; a program that writes more is ended.
        qsizetype mostStandardError = std::numeric_limits<qsizetype>::max();
    };

    /// `onOutput` gets standard output as it comes, `onEnd` is called once.
    ChildProcess(Command command, std::shared_ptr<ProcessHandle> handle, OutputHandler onOutput,
                 EndHandler onEnd);

    void start();

    /// Ends the process and every process that it started: asks first, and kills what is
    /// left after a grace period. Its end is reported as usual.
    void end();

private:
    void readStandardError();
    void handleFinished(int status, QProcess::ExitStatus exitStatus);
    void settleOnceGroupIsGone();
    void signalGroup(int signal) const;
    void settle();

    const Command m_command;
    const std::shared_ptr<ProcessHandle> m_handle;
    const OutputHandler m_onOutput;
    const EndHandler m_onEnd;
    QProcess m_process;
    QTimer m_groupWatch;
    QTimer m_grace;
    ProcessEnding m_ending;
    bool m_isEnding = false;
};
