// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeTool.h"

#include <QFile>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

FakeTool::FakeTool()
{
    respond({});
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

void FakeTool::respond(const QByteArray &response)
{
    makeGates(response);
    writeFile(file(u"response"_s), response);
    // The tool itself is replaced, too: whoever watches it shall look at it again.
    const QString next = path() + u".next"_s;
    writeFile(next, contentOf(QLatin1String(QUILLON_TEST_SUPPORT "/fake-yt-dlp")));
    QFile::setPermissions(next, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    rename(QFile::encodeName(next), QFile::encodeName(path()));
}

void FakeTool::makeGates(const QByteArray &response)
{
    static const QRegularExpression wait(u"^(?:.* )?wait (\\w+)$"_s,
                                         QRegularExpression::MultilineOption);
    auto waits = wait.globalMatch(QString::fromLatin1(response));
    while (waits.hasNext()) {
        const QString name = waits.next().captured(1);
        if (m_gates.contains(name.toLatin1()))
            continue;
        const QByteArray fifo = QFile::encodeName(file(name));
        mkfifo(fifo, 0600);
        m_gates[name.toLatin1()] = ::open(fifo, O_RDWR | O_CLOEXEC);
    }
}

void FakeTool::open(const QByteArray &gate)
{
    if (!m_gates.contains(gate))
        qFatal("No response waits for %s", gate.constData());
    [[maybe_unused]] const auto written = write(m_gates.value(gate), "\n", 1);
}

QByteArray sample(const char *name)
{
    const QByteArray response =
        contentOf(QLatin1String(QUILLON_TEST_SUPPORT "/responses/") + QLatin1String(name));
    if (response.isEmpty())
        qFatal("There is no response %s", name);
    return response;
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
