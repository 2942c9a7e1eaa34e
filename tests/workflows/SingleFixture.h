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
    static inline const QByteArray oneVideo = R"(echo '{"id":"i","title":"T","uploader":"U"}')";

    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    YTDLPService &service() { return *m_fixture->service; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }

    void fetch()
    {
        state().fetchSingleInfo();
        WAIT_FOR(!state().isFetching());
    }

    void download()
    {
        state().startSingleDownload();
        WAIT_FOR(m_fixture->hasEnded());
    }

    /// A download that stands at processing until the gate "go" opens.
    void startStoppable()
    {
        tool().setScript("echo '[Merger] x'\n" + tool().gate("go"));
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus(Status::Processing{}));
    }

    std::unique_ptr<StateFixture> m_fixture;
};
