// SPDX-License-Identifier: GPL-3.0-or-later
#include "KeeperFixture.h"

/// What can be tried again with a new tool.
class RetryTest : public KeeperFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KeeperFixture::init(); }
    void cleanup() { KeeperFixture::cleanup(); }

    void onlyTheURLThatFailedIsRepeated()
    {
        QVERIFY(fetch());
        QVERIFY(m_keeper->retry().isPossible());
        state().singleURL = u"https://example.org/b"_s;
        QVERIFY(!m_keeper->retry().isPossible());
        state().singleURL = u" https://example.org/a "_s;
        QVERIFY(m_keeper->retry().isPossible());
        state().mode = AppMode::browse;
        QVERIFY(!m_keeper->retry().isPossible());
    }

    void onlyTheQueryThatFailedIsRepeated()
    {
        state().mode = AppMode::browse;
        state().browseSearchQuery = u"boats"_s;
        state().searchYouTube();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isBrowseSearching(), patience);
        QVERIFY(m_keeper->retry().isPossible());
        state().browseSearchQuery = u"bridges"_s;
        QVERIFY(!m_keeper->retry().isPossible());
        state().browseSearchQuery = u"boats"_s;
        m_keeper->retry().repeat();
        QVERIFY(state().isBrowseSearching());
        QTRY_VERIFY_WITH_TIMEOUT(!state().isBrowseSearching(), patience);
    }

    void aPlaybackIsRepeatedNotStopped()
    {
        state().mode = AppMode::browse;
        const SearchResult result = StateFixture::searchResult(u"a"_s);
        state().playBrowseResult(result);
        QTRY_VERIFY_WITH_TIMEOUT(state().playerError(), patience);
        QVERIFY(m_keeper->retry().isPossible());
        m_keeper->retry().repeat();
        QVERIFY(state().isLoadingStream());
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QTRY_VERIFY_WITH_TIMEOUT(state().playerError(), patience);
    }

    void aDownloadIsLeftToItsOwnButton()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
        QCOMPARE(kindOf(state().downloadStatus()), StatusKind::Failed);
        QVERIFY(!m_keeper->retry().isPossible());
    }
};

QTEST_GUILESS_MAIN(RetryTest)
#include "RetryTest.moc"
