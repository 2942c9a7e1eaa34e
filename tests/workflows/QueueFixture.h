// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StateFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

/// A queue on a fake tool that answers fetches.
class QueueFixture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        tool().setScript(script());
    }
    void cleanup() { m_fixture.reset(); }

protected:
    using Kinds = QList<StatusKind::Value>;

    /// A script that answers fetches, and for downloads does what is said.
    static QByteArray script(
        const QByteArray &download = "echo \"[download] Destination: /d/$N.mp4\"")
    {
        return "for LAST; do :; done\n"
               "entry() { echo '{\"_type\":\"url\",\"id\":\"'$1'\",\"title\":\"Title '$1'\","
               "\"url\":\"https://x/watch?v='$1'\"}'; }\n"
               "case \"$*\" in\n"
               "*--flat-playlist*) entry a; entry b; entry c;;\n"
               "*--dump-json*) echo '{\"id\":\"i\",\"title\":\"Title of '$LAST'\","
               "\"thumbnail\":\"http://x/t.jpg\"}';;\n"
               "*) "
            + download + ";;\nesac";
    }

    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }
    std::shared_ptr<DownloadItem> item(qsizetype index) { return state().queue().at(index); }

    /// Puts addresses into the queue and waits until they are known.
    void add(const QStringList &addresses)
    {
        for (const QString &address : addresses) {
            state().addURLToQueue(address);
            WAIT_FOR(item(state().queue().size() - 1)->status()
                     == DownloadStatus(Status::Waiting{}));
        }
    }

    Kinds statuses()
    {
        Kinds found;
        for (const auto &each : state().queue())
            found.append(kindOf(each->status()));
        return found;
    }

    QStringList titles()
    {
        QStringList found;
        for (const auto &each : state().queue())
            found.append(each->title());
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
};
