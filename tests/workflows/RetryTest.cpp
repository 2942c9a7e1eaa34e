// SPDX-License-Identifier: GPL-3.0-or-later
#include "KeeperFixture.h"

/// What can be tried again with a new tool.
class RetryTest : public KeeperFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KeeperFixture::init(); }
    void cleanup() { KeeperFixture::cleanup(); }

    void aFetchIsRepeatedOnlyForTheAddressThatFailed()
    {
        fetch();
        QVERIFY(m_keeper->retry().isPossible());
        state().singleURL = u"https://example.org/b"_s;
        QVERIFY(!m_keeper->retry().isPossible());
        state().singleURL = u" https://example.org/a "_s;
        QVERIFY(m_keeper->retry().isPossible());
        state().mode = AppMode::browse;
        QVERIFY(!m_keeper->retry().isPossible());
    }

    void aSearchIsRepeatedOnlyForTheWordsThatFailed()
    {
        state().mode = AppMode::browse;
        state().browseSearchQuery = u"boats"_s;
        state().searchYouTube();
        WAIT_FOR(!state().isBrowseSearching());
        QVERIFY(m_keeper->retry().isPossible());
        state().browseSearchQuery = u"bridges"_s;
        QVERIFY(!m_keeper->retry().isPossible());
        state().browseSearchQuery = u"boats"_s;
        m_keeper->retry().repeat();
        QVERIFY(state().isBrowseSearching());
        WAIT_FOR(!state().isBrowseSearching());
    }

    void aPlaybackIsRepeatedNotStopped()
    {
        state().mode = AppMode::browse;
        const SearchResult result{.id = u"a"_s,
                                  .title = u"A"_s,
                                  .uploader = {},
                                  .duration = 1,
                                  .thumbnailURL = {},
                                  .videoURL = u"https://x/a"_s};
        state().playBrowseResult(result);
        WAIT_FOR(state().playerError());
        QVERIFY(m_keeper->retry().isPossible());
        m_keeper->retry().repeat();
        QVERIFY(state().isLoadingStream());
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        WAIT_FOR(state().playerError());
    }

    void aDownloadIsLeftToItsOwnButton()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(!state().isDownloading());
        QCOMPARE(kindOf(state().downloadStatus()), StatusKind::Failed);
        QVERIFY(!m_keeper->retry().isPossible());
    }
};

QTEST_GUILESS_MAIN(RetryTest)
#include "RetryTest.moc"
