// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StateFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Single mode on a fake tool.
class SingleFixture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

protected:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    YTDLPService &service() { return *m_fixture->service; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }

    [[nodiscard]] bool fetch()
    {
        state().fetchSingleInfo();
        return waitFor([&] { return !state().isFetching(); });
    }

    [[nodiscard]] bool download()
    {
        state().startSingleDownload();
        return waitFor([&] { return m_fixture->hasEnded(); });
    }

    /// A download that stands at processing until the gate "go" opens.
    [[nodiscard]] bool startStoppable()
    {
        tool().respond("print [Merger] x\n"
                       "wait go");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        return waitFor(
            [&] { return state().downloadStatus() == DownloadUIStatus(Status::Processing{}); });
    }

    std::unique_ptr<StateFixture> m_fixture;
};
