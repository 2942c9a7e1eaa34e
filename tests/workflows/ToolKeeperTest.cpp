// SPDX-License-Identifier: GPL-3.0-or-later
#include "KeeperFixture.h"

/// What the program knows of its tool, when it looks, and what comes of an update.
class ToolKeeperTest : public KeeperFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KeeperFixture::init(); }
    void cleanup() { KeeperFixture::cleanup(); }

    void nothingIsRunBeforeItBegins()
    {
        QVERIFY(fetch());
        QCOMPARE(m_fixture->tool.calls().size(), 1); // the fetch
        QVERIFY(!m_keeper->report());
        QVERIFY(!m_keeper->isComplaintDue());
    }

    void aToolOfNoUseIsComplainedOf()
    {
        QVERIFY(begin());
        QCOMPARE(m_keeper->status(), ToolStatus::tooOld);
        QVERIFY(m_keeper->isComplaintDue());
        QVERIFY(m_keeper->canUpdate());
    }

    void notNowHoldsUntilTheToolChanges()
    {
        QVERIFY(begin());
        m_keeper->notNow();
        QVERIFY(!m_keeper->isComplaintDue());
        QCOMPARE(m_fixture->preferences->string(u"quillon.toolNotNow"_s),
                 m_fixture->tool.path() + u" 2023.03.04"_s);
        QVERIFY(restart());
        QVERIFY(!m_keeper->isComplaintDue());
        setTool("2023.03.05");
        m_keeper->begin();
        QTRY_VERIFY_WITH_TIMEOUT(m_keeper->isComplaintDue(), patience);
    }

    void aChangedToolIsSeenBeforeAnOperation()
    {
        QVERIFY(begin());
        setTool("2026.08.01");
        QVERIFY(fetch());
        QTRY_COMPARE_WITH_TIMEOUT(version(), u"2026.08.01"_s, patience);
        QVERIFY(!m_keeper->isComplaintDue());
    }

    void openingTheSettingsNoticesAChangedTool()
    {
        QVERIFY(begin());
        setTool("2026.08.01");
        state().showSettings = true;
        QTRY_COMPARE_WITH_TIMEOUT(version(), u"2026.08.01"_s, patience);
    }

    void anUnchangedToolIsNotRunAgain()
    {
        QVERIFY(begin());
        QVERIFY(fetch());
        state().showSettings = true;
        setTool("2026.08.01"); // whose report comes behind all that was looked at before
        state().showSettings = false;
        QTRY_COMPARE_WITH_TIMEOUT(version(), u"2026.08.01"_s, patience);
        QCOMPARE(m_fixture->tool.calls().count(QStringList{u"--version"_s}), 2);
    }

    void aFailedLaunchHasTheToolJudgedAgain()
    {
        // A link to an interpreter that goes away: the tool's own file stays as it was.
        const QString shell = m_fixture->folder.filePath(u"sh"_s);
        QVERIFY(QFile::link(u"/bin/sh"_s, shell));
        QFile::remove(m_fixture->tool.path());
        writeFile(m_fixture->tool.path(), "#!" + shell.toUtf8() + "\necho 2026.08.01\n");
        QFile::setPermissions(m_fixture->tool.path(), QFile::ReadOwner | QFile::ExeOwner);
        QVERIFY(begin());
        QCOMPARE(m_keeper->status(), ToolStatus::current);
        QFile::remove(shell);
        QVERIFY(fetch());
        QTRY_COMPARE_WITH_TIMEOUT(m_keeper->status(), ToolStatus::doesNotStart, patience);
    }

    void ageIsHintedAtOncePerVersion()
    {
        setTool("2026.03.01", "fail ERROR: Unable to extract uploader id");
        QVERIFY(begin());
        QCOMPARE(m_keeper->status(), ToolStatus::old);
        QVERIFY(!m_keeper->isHintDue());
        QVERIFY(fetch());
        QVERIFY(m_keeper->isHintDue());
        m_keeper->notNow();
        QVERIFY(!m_keeper->isHintDue());
        QVERIFY(fetch());
        QVERIFY(!m_keeper->isHintDue());
        QVERIFY(restart());
        QVERIFY(fetch());
        QVERIFY(!m_keeper->isHintDue());
        setTool("2026.03.02", "fail ERROR: Unable to extract uploader id");
        m_keeper->begin();
        QTRY_COMPARE_WITH_TIMEOUT(version(), u"2026.03.02"_s, patience);
        QVERIFY(fetch());
        QVERIFY(m_keeper->isHintDue());
    }

    void everyKindOfOperationMayHint_data()
    {
        QTest::addColumn<QString>("operation");
        for (const char *const name : {"fetch", "search", "stream", "download", "queue", "player"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void everyKindOfOperationMayHint()
    {
        QFETCH(QString, operation);
        setTool("2026.03.01", "fail ERROR: HTTP Error 403: Forbidden");
        QVERIFY(begin());
        const SearchResult result = StateFixture::searchResult(u"a"_s);
        if (operation == u"fetch") {
            QVERIFY(fetch());
        } else if (operation == u"search") {
            state().browseSearchQuery = u"boats"_s;
            state().searchYouTube();
        } else if (operation == u"stream") {
            state().playBrowseResult(result);
        } else if (operation == u"download") {
            state().singleInfo = StateFixture::video(u"a"_s);
            state().startSingleDownload();
        } else if (operation == u"queue") {
            state().addURLToQueue(u"https://x/a"_s);
        } else {
            Q_EMIT state().avPlayer.failed(u"HTTP error 403 Forbidden"_s);
        }
        QTRY_VERIFY_WITH_TIMEOUT(m_keeper->isHintDue(), patience);
    }

    void failuresOfOtherCausesGiveNoHint()
    {
        setTool("2026.03.01", "fail ERROR: Private video. Sign in");
        QVERIFY(begin());
        QVERIFY(fetch());
        QVERIFY(!m_keeper->isHintDue());
    }

    void aCurrentToolIsNotHintedAt()
    {
        setTool("2026.08.01", "fail ERROR: Unable to extract");
        QVERIFY(begin());
        QVERIFY(fetch());
        QVERIFY(!m_keeper->isHintDue());
    }

    void anUpdateIsUsedByTheNextOperation()
    {
        offer(*m_server, *m_signer,
              zippedTool("import sys\nif sys.argv[1:] == ['--version']: print('2026.08.19')\n"
                         "else: print('{\"id\": \"a\", \"title\": \"New\"}')\n"));
        QVERIFY(begin());
        QVERIFY(fetch());
        QVERIFY(state().fetchError());
        QVERIFY(update());
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::ready);
        QCOMPARE(m_keeper->updateOutcome().version.text, u"2026.08.19"_s);
        QCOMPARE(m_keeper->report()->path, ownPath());
        QVERIFY(!m_keeper->isComplaintDue());
        QVERIFY(m_keeper->retry().isPossible());
        m_keeper->retry().repeat();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
        QCOMPARE(state().singleInfo()->title, u"New"_s);
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::none);
    }

    void theHintGoesWithItsUpdate()
    {
        setTool("2026.03.01", "fail ERROR: Unable to extract");
        QVERIFY(begin());
        QVERIFY(fetch());
        QVERIFY(m_keeper->isHintDue());
        QVERIFY(update());
        m_keeper->closeUpdate();
        QVERIFY(!m_keeper->isHintDue());
    }

    void failuresAfterTheUpdateCanBeRepeated()
    {
        setTool("2023.03.04", "wait go\nexit 1");
        QVERIFY(begin());
        state().singleURL = u"https://example.org/a"_s;
        state().fetchSingleInfo();
        QVERIFY(update());
        int changes = 0;
        connect(m_keeper.get(), &ToolKeeper::changed, this,
                [&] { changes += m_keeper->retry().isPossible() ? 1 : 0; });
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(changes > 0, patience);
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::ready);
    }

    void aRunningQueueKeepsTheReadyNotice()
    {
        QVERIFY(begin());
        QVERIFY(update());
        state().addURLToQueue(u"https://example.org/a"_s);
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::ready);
    }

    void anEarlierToolEndsAnUpdateAtOnce()
    {
        QVERIFY(begin());
        QVERIFY(QDir(m_fixture->folder.path()).mkpath(u"own"_s));
        writeFile(ownPath(), "mine");
        QVERIFY(update());
        QVERIFY(m_keeper->updateOutcome().error.contains(u"Quillon did not put"));
        QCOMPARE(m_server->requests, QStringList());
    }

    void notNowIsForgottenWithItsTool()
    {
        QFile::rename(m_fixture->tool.path(), m_fixture->tool.file(u"aside"_s));
        QVERIFY(begin());
        QCOMPARE(m_keeper->status(), ToolStatus::missing);
        m_keeper->notNow();
        QVERIFY(!m_keeper->isComplaintDue());
        setTool("2026.08.01");
        m_keeper->begin();
        QTRY_COMPARE_WITH_TIMEOUT(m_keeper->status(), ToolStatus::current, patience);
        QFile::remove(m_fixture->tool.path());
        m_keeper->begin();
        QTRY_VERIFY_WITH_TIMEOUT(m_keeper->isComplaintDue(), patience);
    }

    void startingClearsAKilledUpdatesRemains()
    {
        QVERIFY(QDir(m_fixture->folder.path()).mkpath(u"own/.quillon-update"_s));
        QVERIFY(begin());
        QTRY_VERIFY_WITH_TIMEOUT(
            !QDir(m_fixture->folder.filePath(u"own/.quillon-update"_s)).exists(), patience);
    }

    void aFailedUpdateCanBeRepeated()
    {
        m_server->answers[u"yt-dlp"_s] = {{.body = {}, .status = 404}};
        QVERIFY(begin());
        QVERIFY(update());
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::failed);
        QVERIFY(m_keeper->updateOutcome().error.contains(u"404"));
        QCOMPARE(m_keeper->status(), ToolStatus::tooOld);
        offer(*m_server, *m_signer, zippedTool(versionCode("2026.08.19")));
        QVERIFY(update());
        QCOMPARE(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::ready);
    }

    void aCancelledUpdateLeavesNoTrace()
    {
        m_server->answers[u"yt-dlp"_s] = {{.body = "x", .told = 100, .isHeld = true}};
        QVERIFY(begin());
        m_keeper->update();
        QTRY_VERIFY_WITH_TIMEOUT(m_server->requests.contains(u"/yt-dlp"_s), patience);
        m_keeper->cancelUpdate();
        QTRY_COMPARE_WITH_TIMEOUT(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::none, patience);
        QVERIFY(m_keeper->isComplaintDue());
    }

    void anUpdateDoesNotBeginTwice()
    {
        m_server->answers[u"SHA2-256SUMS"_s] = {{.body = {}, .isSilent = true}};
        QVERIFY(begin());
        m_keeper->update();
        m_keeper->update();
        QTRY_VERIFY_WITH_TIMEOUT(!m_server->requests.isEmpty(), patience);
        m_keeper.reset(); // the window closes in the middle
        QCOMPARE(m_server->requests.size(), 1);
        QVERIFY(QDir(m_fixture->folder.filePath(u"own"_s))
                    .isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void aDownloadGoesOnDuringAnUpdate()
    {
        setTool("2023.03.04", "wait go\nexit 0");
        QVERIFY(begin());
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.processIdentifiers().size(), 2, patience);
        QVERIFY(update());
        QVERIFY(state().isDownloading());
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
        QCOMPARE(kindOf(state().downloadStatus()), StatusKind::Done);
    }
};

QTEST_GUILESS_MAIN(ToolKeeperTest)
#include "ToolKeeperTest.moc"
