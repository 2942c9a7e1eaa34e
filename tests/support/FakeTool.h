// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// A tool that does what a test's shell script says. It records every call.
class FakeTool
{
    Q_DISABLE_COPY_MOVE(FakeTool)

public:
    FakeTool();
    ~FakeTool();

    [[nodiscard]] QString path() const { return file(u"yt-dlp"_s); }
    [[nodiscard]] QString file(const QString &name) const;

    /// What the tool does from now on. "$DIR" is the fake tool's own folder and
    /// "$N" the number of the call, from 1.
    void setScript(const QByteArray &body);

    /// A script line that waits for open(name).
    QByteArray gate(const QByteArray &name);
    void open(const QByteArray &name);

    [[nodiscard]] QList<QStringList> calls() const;
    [[nodiscard]] QStringList environment() const;
    [[nodiscard]] QList<qint64> processIdentifiers() const;

private:
    QTemporaryDir m_folder;
    QMap<QByteArray, int> m_gates;
};

/// Whether a process with this number exists and has not ended.
bool isAlive(qint64 processIdentifier);
/// The letter of the process's state: "T" is stopped.
QByteArray stateOf(qint64 processIdentifier);
QByteArray contentOf(const QString &path);
void writeFile(const QString &path, const QByteArray &content);
