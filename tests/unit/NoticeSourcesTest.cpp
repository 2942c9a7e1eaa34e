// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureNotice.h"
#include "InterruptedNotice.h"
#include "NoticePresenter.h"
#include "Retry.h"
#include "SeveralURLsNotice.h"
#include "StateFixture.h"
#include "UndoNotice.h"

#include <QTest>

/// What notices say and do; that of the tool is in NoticeTest.
class NoticeSourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_retry = std::make_unique<Retry>(state());
        m_failure =
            std::make_unique<FailureNotice>(state(), *m_retry, std::chrono::milliseconds(50));
        m_several = std::make_unique<SeveralURLsNotice>(state());
        m_interrupted = std::make_unique<InterruptedNotice>(state());
        m_notices = std::make_unique<NoticePresenter>(
            QList<NoticeSource *>{m_failure.get(), m_several.get(), m_interrupted.get()});
    }

    void cleanup()
    {
        m_notices.reset();
        m_interrupted.reset();
        m_several.reset();
        m_failure.reset();
        m_retry.reset();
        m_fixture.reset();
    }

    void anUnknownFailureGivesNoNotice()
    {
        QVERIFY(failToFetch("ERROR: gone"));
        QVERIFY(!m_notices->isShown());
    }

    void aSignInCheckLeadsToTheSettings()
    {
        QVERIFY(failToFetch("ERROR: Sign in to confirm your age"));
        QCOMPARE(m_notices->actionText(), u"Choose browser cookies"_s);
        m_notices->act();
        QVERIFY(state().showSettings());
        QVERIFY(!m_notices->isShown());
    }

    void aMissingConverterNamesItsCommand()
    {
        QVERIFY(failToFetch("ERROR: ffmpeg is not installed"));
        QCOMPARE(m_notices->command(), u"sudo apt install ffmpeg"_s);
        QCOMPARE(m_notices->actionText(), QString());
    }

    void withoutNetworkTheFetchIsRepeated()
    {
        QVERIFY(failToFetch("ERROR: Temporary failure in name resolution"));
        QCOMPARE(m_notices->actionText(), u"Try again"_s);
        m_notices->act();
        QVERIFY(!m_notices->isShown());
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().size(), 2, patience);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
    }

    void aRateLimitWaitsBeforeTryingAgain()
    {
        QVERIFY(failToFetch("ERROR: HTTP Error 429: Too Many Requests"));
        QVERIFY(m_notices->isShown());
        QCOMPARE(m_notices->actionText(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(m_notices->actionText(), u"Try again"_s, patience);
    }

    void aFailedDownloadIsRepeated()
    {
        m_fixture->tool.respond("fail ERROR: Temporary failure in name resolution");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(m_notices->actionText(), u"Try again"_s);
        m_fixture->tool.respond("");
        m_notices->act();
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(state().downloadStatus()) == StatusKind::Done, patience);
        QVERIFY(!m_notices->isShown());
    }

    void aClosedNoticeStaysAway()
    {
        QVERIFY(failToFetch("ERROR: Sign in to confirm your age"));
        m_notices->dismiss();
        QVERIFY(!m_notices->isShown());
    }

    void severalURLsAreAddedToTheQueue()
    {
        m_fixture->tool.respond("exit 1");
        Q_EMIT state().severalURLsSeen({u"https://x/a"_s, u"https://x/b"_s});
        QCOMPARE(m_notices->actionText(), u"Add all 2 to the queue"_s);
        m_notices->act();
        QCOMPARE(state().queue().size(), 2);
        QVERIFY(state().mode() == AppMode::multi);
        QVERIFY(!m_notices->isShown());
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(state().queue()[1]->status()) == StatusKind::Failed,
                                 patience);
    }

    void aFailureGoesBeforeSeveralURLs()
    {
        Q_EMIT state().severalURLsSeen({u"https://x/a"_s, u"https://x/b"_s});
        QVERIFY(failToFetch("ERROR: Sign in to confirm your age"));
        QCOMPARE(m_notices->actionText(), u"Choose browser cookies"_s);
        m_notices->dismiss();
        QCOMPARE(m_notices->actionText(), u"Add all 2 to the queue"_s);
    }

    void aClearedHistoryComesBack()
    {
        const UndoFixture undo(state());
        state().addToHistory(StateFixture::record(u"a"_s));
        state().clearHistory();
        QCOMPARE(undo.notices->text(), u"The history was cleared."_s);
        state().addToHistory(StateFixture::record(u"b"_s));
        undo.notices->act();
        QCOMPARE(state().history().size(), 2);
        QCOMPARE(state().history().last().title, u"a"_s);
        QVERIFY(!undo.notices->isShown());
        state().loadHistory();
        QCOMPARE(state().history().size(), 2);
    }

    void aClearedQueueComesBackInOrder()
    {
        const UndoFixture undo(state());
        const auto running = std::make_shared<DownloadItem>(u"b"_s);
        running->status = Status::Downloading{};
        const AppState::Queue before{std::make_shared<DownloadItem>(u"a"_s), running,
                                     std::make_shared<DownloadItem>(u"c"_s)};
        state().queue = before;
        state().clearQueue();
        QCOMPARE(undo.notices->text(), u"2 entries were removed."_s);
        const auto added = std::make_shared<DownloadItem>(u"d"_s);
        state().queue = state().queue() + AppState::Queue{added};
        undo.notices->act();
        QCOMPARE(state().queue(), before + AppState::Queue{added});
    }

    void clearingNothingOffersNothing()
    {
        const UndoFixture undo(state());
        state().clearHistory();
        state().clearQueue();
        QVERIFY(!undo.notices->isShown());
    }

    void theOfferToUndoGoesByItself()
    {
        const UndoFixture undo(state());
        state().addToHistory(StateFixture::record(u"a"_s));
        state().clearHistory();
        QVERIFY(undo.notices->isShown());
        QTRY_VERIFY_WITH_TIMEOUT(!undo.notices->isShown(), patience);
    }

private:
    struct UndoFixture
    {
        explicit UndoFixture(AppState &state)
            : notice(std::make_unique<UndoNotice>(state, std::chrono::milliseconds(200)))
            , notices(std::make_unique<NoticePresenter>(QList<NoticeSource *>{notice.get()}))
        {
        }
        std::unique_ptr<UndoNotice> notice;
        std::unique_ptr<NoticePresenter> notices;
    };

    AppState &state() { return *m_fixture->state; }

    [[nodiscard]] bool failToFetch(const QByteArray &message)
    {
        m_fixture->tool.respond("fail " + message);
        state().singleURL = u"https://x/watch?v=a"_s;
        state().fetchSingleInfo();
        return waitFor([&] { return m_fixture->hasEnded(); });
    }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<Retry> m_retry;
    std::unique_ptr<FailureNotice> m_failure;
    std::unique_ptr<SeveralURLsNotice> m_several;
    std::unique_ptr<InterruptedNotice> m_interrupted;
    std::unique_ptr<NoticePresenter> m_notices;
};

QTEST_MAIN(NoticeSourcesTest)
#include "NoticeSourcesTest.moc"
