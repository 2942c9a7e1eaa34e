// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeTool.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

FakeTool::FakeTool()
{
    setScript("exit 0");
}

FakeTool::~FakeTool()
{
    for (const int gate : std::as_const(m_gates))
        close(gate);
}

QString FakeTool::file(const QString &name) const
{
    return m_folder.filePath(name);
}

void FakeTool::setScript(const QByteArray &body)
{
    // Replaced rather than overwritten: an earlier call may still read it.
    const QString next = path() + u".next"_s;
    writeFile(next,
              "#!/bin/sh\n"
              "DIR='"
                  + m_folder.path().toUtf8()
                  + "'\n"
                    "echo $$ >> \"$DIR/processes\"\n"
                    "N=$(grep -n \"^$$\\$\" \"$DIR/processes\" | cut -d: -f1)\n"
                    "tr '\\0' '\\n' < /proc/$$/environ > \"$DIR/environment\"\n"
                    "{ printf '%s\\n' \"$@\"; echo --END-OF-CALL--; } >> \"$DIR/calls\"\n"
                  + body + "\n");
    QFile::setPermissions(next, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    rename(QFile::encodeName(next), QFile::encodeName(path()));
}

QByteArray FakeTool::gate(const QByteArray &name)
{
    const QByteArray fifo = file(QString::fromUtf8(name)).toUtf8();
    if (!m_gates.contains(name)) {
        mkfifo(fifo, 0600);
        m_gates[name] = ::open(fifo, O_RDWR | O_CLOEXEC);
    }
    return "read _ < '" + fifo + "'\n";
}

void FakeTool::open(const QByteArray &name)
{
    [[maybe_unused]] const auto written = write(m_gates.value(name), "\n", 1);
}

QList<QStringList> FakeTool::calls() const
{
    QList<QStringList> calls;
    QStringList call;
    const QList<QByteArray> lines = contentOf(file(u"calls"_s)).split('\n');
    for (const QByteArray &line : lines) {
        if (line == "--END-OF-CALL--")
            calls.append(std::exchange(call, {}));
        else
            call.append(QString::fromUtf8(line));
    }
    return calls;
}

QStringList FakeTool::environment() const
{
    QStringList variables =
        QString::fromUtf8(contentOf(file(u"environment"_s))).split(u'\n', Qt::SkipEmptyParts);
    variables.sort();
    return variables;
}

QList<qint64> FakeTool::processIdentifiers() const
{
    QList<qint64> identifiers;
    const QList<QByteArray> lines = contentOf(file(u"processes"_s)).trimmed().split('\n');
    for (const QByteArray &line : lines) {
        if (!line.isEmpty())
            identifiers.append(line.toLongLong());
    }
    return identifiers;
}

QByteArray stateOf(qint64 processIdentifier)
{
    const QByteArray stat = contentOf(u"/proc/%1/stat"_s.arg(processIdentifier));
    return stat.mid(stat.lastIndexOf(')') + 2, 1);
}

bool isAlive(qint64 processIdentifier)
{
    const QByteArray state = stateOf(processIdentifier);
    return !state.isEmpty() && state != "Z" && state != "X";
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("A test could not write %s", qPrintable(path));
}
