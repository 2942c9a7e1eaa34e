// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// Stands in for yt-dlp: notes every call, and does what a test has told it. See the
/// program fake-yt-dlp for the steps of a response.
class FakeTool
{
    Q_DISABLE_COPY_MOVE(FakeTool)

public:
    FakeTool();
    ~FakeTool();

    [[nodiscard]] QString path() const { return file(u"yt-dlp"_s); }
    [[nodiscard]] QString file(const QString &name) const;

    /// What calls that begin from now on do: a step in each line.
    void respond(const QByteArray &response);

    /// Lets one call go on that waits at this gate, or the next that comes to it.
    void open(const QByteArray &gate);

    [[nodiscard]] QList<QStringList> calls() const;
    [[nodiscard]] QStringList environment() const;
    [[nodiscard]] QList<qint64> processIdentifiers() const;

private:
    void makeGates(const QByteArray &response);

    QTemporaryDir m_folder;
    QMap<QByteArray, int> m_gates;
};

/// A response that several tests use, from the folder "responses".
QByteArray sample(const char *name);

/// Whether a process with this number exists and has not ended.
bool isAlive(qint64 processIdentifier);
/// The letter of the process's state: "T" is stopped.
QByteArray stateOf(qint64 processIdentifier);
QByteArray contentOf(const QString &path);
void writeFile(const QString &path, const QByteArray &content);
