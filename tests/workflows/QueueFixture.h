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
        respondToFetches();
    }
    void cleanup() { m_fixture.reset(); }

protected:
    using Kinds = QList<StatusKind::Value>;

    /// The tool answers fetches, and does this for downloads.
    void respondToFetches(const QByteArray &download = "print [download] Destination: /d/{n}.mp4")
    {
        tool().respond(sample("fetches") + download);
    }

    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }
    std::shared_ptr<DownloadItem> item(qsizetype index) { return state().queue().at(index); }

    /// Puts URLs into the queue and waits until they are known.
    [[nodiscard]] bool add(const QStringList &urls)
    {
        for (const QString &url : urls) {
            state().addURLToQueue(url);
            if (!waitFor([&] {
                    return item(state().queue().size() - 1)->status()
                        == DownloadStatus(Status::Waiting{});
                }))
                return false;
        }
        return true;
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
