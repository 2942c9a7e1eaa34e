// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleFixture.h"

/// What a start of the program leaves undone, and the next one offers.
class InterruptedTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aClosedProgramOffersTheRestOfItsRun()
    {
        QVERIFY(interruptSecondOfThree());
        QCOMPARE(
            urls(),
            QStringList({u"https://example.org/watch?v=b"_s, u"https://example.org/watch?v=c"_s}));
        QCOMPARE(state().interruptedDownloads().first().title, u"Title b"_s);
        QVERIFY(state().queue().isEmpty());
    }

    void aFinishedRunLeavesNothing()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        QVERIFY(download());
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

    void aFailedRunLeavesNothing()
    {
        tool().respond("exit 1");
        state().singleInfo = StateFixture::video(u"a"_s);
        QVERIFY(download());
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

    void whatIsKeptIsInTheFileDuringTheRun()
    {
        QVERIFY(startStoppable());
        m_fixture->preferences->flush();
        const QByteArray file = contentOf(m_fixture->preferences->path());
        QVERIFY(file.contains("quillon.interrupted"));
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        m_fixture->preferences->flush();
        QVERIFY(!contentOf(m_fixture->preferences->path()).contains("quillon.interrupted"));
    }

    void theQueueAndBrowseLeaveTheirsToo()
    {
        tool().respond("wait go");
        state().queue = {std::make_shared<DownloadItem>(u"https://x/q"_s)};
        state().startQueueDownload();
        state().browseDownload(StateFixture::searchResult(u"b"_s), true);
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        m_fixture->restart();
        QCOMPARE(urls(), QStringList({u"https://x/q"_s, u"https://x/b"_s}));
        QCOMPARE(state().interruptedDownloads().last().format, u"mp3"_s);
    }

    void requeueingFetchesOneAfterAnother()
    {
        state().selectedQuality = QualityOption::mp4Options()[3]; // 1080p
        QVERIFY(interruptSecondOfThree());
        tool().respond("wait fetch\n"
                       "print {\"id\":\"x\",\"title\":\"T\"}");
        state().requeueInterrupted();
        QVERIFY(state().mode() == AppMode::multi);
        QCOMPARE(state().multiQuality().label, u"1080p"_s);
        QCOMPARE(state().queue().size(), 2);
        const qsizetype before = tool().calls().size();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), before + 1, patience);
        tool().open("fetch");
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), before + 2, patience);
        tool().open("fetch");
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(state().queue()[1]->status()) == StatusKind::Waiting,
                                 patience);
        QVERIFY(!state().isQueueDownloading());
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

    void forgettingForgets()
    {
        QVERIFY(interruptSecondOfThree());
        state().forgetInterrupted();
        QVERIFY(urls().isEmpty());
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

    void clearingTheHistoryForgetsToo()
    {
        QVERIFY(interruptSecondOfThree());
        state().clearHistory();
        QVERIFY(urls().isEmpty() && state().history().isEmpty());
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

    void aNewRunKeepsWhatIsOffered()
    {
        QVERIFY(interruptSecondOfThree());
        state().singleInfo = StateFixture::video(u"d"_s);
        tool().respond("");
        QVERIFY(download());
        m_fixture->restart();
        QCOMPARE(urls().size(), 2);
    }

    void garbageInTheFileOffersNothing_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::newRow("no JSON") << "{"_ba;
        QTest::newRow("no list") << "{}"_ba;
        QTest::newRow("no objects") << "[1,\"a\",null]"_ba;
        QTest::newRow("no URLs") << "[{\"title\":\"a\"},{\"url\":5}]"_ba;
    }
    void garbageInTheFileOffersNothing()
    {
        QFETCH(QByteArray, document);
        m_fixture->preferences->setBlob(u"quillon.interrupted"_s, [document] { return document; });
        m_fixture->restart();
        QVERIFY(urls().isEmpty());
    }

private:
    QStringList urls()
    {
        QStringList found;
        for (const PendingDownload &each : state().interruptedDownloads())
            found.append(each.url);
        return found;
    }

    [[nodiscard]] bool interruptSecondOfThree()
    {
        tool().respond("on 2 print [Merger] x\n"
                       "on 2 wait go");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().selectedPlaylistItems = {u"a"_s, u"b"_s, u"c"_s};
        state().startSingleDownload();
        if (!waitFor([&] {
                return state().currentDownloadIndex() == 2
                    && state().downloadStatus() == DownloadUIStatus(Status::Processing{});
            }))
            return false;
        m_fixture->restart();
        return true;
    }
};

QTEST_GUILESS_MAIN(InterruptedTest)
#include "InterruptedTest.moc"
