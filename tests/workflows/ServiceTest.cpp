// SPDX-License-Identifier: GPL-3.0-or-later
#include "HomeDirectory.h"
#include "Outcome.h"

#include <QTest>

using namespace Qt::StringLiterals;

class ServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tool = std::make_unique<FakeTool>();
        m_service = std::make_unique<YTDLPService>(QStringList{m_tool->path()});
    }

    void cleanup()
    {
        m_service.reset();
        m_tool.reset();
    }

    void theStandardPathsComeInTheirOrder()
    {
        QCOMPARE(YTDLPService::shared().binarySearchPaths,
                 QStringList({u"/opt/homebrew/bin/yt-dlp"_s, u"/usr/local/bin/yt-dlp"_s,
                              QDir::homePath() + u"/.local/bin/yt-dlp"_s, u"/usr/bin/yt-dlp"_s}));
    }

    void theFirstPathThatExistsIsUsed()
    {
        const FakeTool second;
        const YTDLPService service({u"/nowhere/yt-dlp"_s, m_tool->path(), second.path()});
        QCOMPARE(service.ytdlpPath(), m_tool->path());
    }

    void withoutAToolTheLaunchFailsAtOnce()
    {
        YTDLPService service({u"/nowhere/yt-dlp"_s, u"/elsewhere/yt-dlp"_s});
        QCOMPARE(service.ytdlpPath(), u"/nowhere/yt-dlp"_s);
        Outcome<QString> outcome;
        service.runProcess({}, outcome.completion());
        QTRY_VERIFY_WITH_TIMEOUT(outcome.isSettled(), patience);
        QVERIFY2(outcome.error().startsWith(u"Failed to fetch info: "_s),
                 qPrintable(outcome.error()));
        QVERIFY2(outcome.error().contains(u"No such file or directory"_s),
                 qPrintable(outcome.error()));
    }

    void anUnrunnableToolFailsInTheSystemsWords()
    {
        QFile::setPermissions(m_tool->path(), QFile::ReadOwner);
        QCOMPARE(m_service->ytdlpPath(), m_tool->path());
        Outcome<QString> outcome;
        m_service->runProcess({}, outcome.completion());
        QTRY_VERIFY_WITH_TIMEOUT(outcome.isSettled(), patience);
        QVERIFY2(outcome.error().contains(u"Permission denied"_s), qPrintable(outcome.error()));
    }

    void theEnvironmentIsExactlyThreeEntries()
    {
        qputenv("QUILLON_SECRET", "x");
        run();
        qunsetenv("QUILLON_SECRET");
        QCOMPARE(m_tool->environment(),
                 QStringList({u"HOME="_s + homeDirectory(), u"LANG=en_US.UTF-8"_s,
                              u"PATH=/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin:%1/.local/bin:"
                              "%1/.deno/bin"_s.arg(homeDirectory())}));
    }

    void aHomeWithAColonStaysOutOfPath()
    {
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", "/home/a:b");
        const QString path = YTDLPService::processEnv()[u"PATH"_s];
        qputenv("HOME", home);
        QCOMPARE(path, u"/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin"_s);
    }

    void aFailedLaunchDiffersFromAFailedRun()
    {
        YTDLPService nowhere({u"/nowhere/yt-dlp"_s});
        Outcome<QString> unlaunched;
        nowhere.runProcess({}, unlaunched.completion());
        m_tool->respond("exit 2");
        Outcome<QString> failed;
        m_service->runProcess({}, failed.completion());
        QTRY_VERIFY_WITH_TIMEOUT(unlaunched.isSettled() && failed.isSettled(), patience);
        QCOMPARE(std::get<YTDLPError>(unlaunched.reply()).launch(), YTDLPError::Launch::failed);
        QCOMPARE(std::get<YTDLPError>(failed.reply()).launch(), YTDLPError::Launch::succeeded);
    }

    void homeHasNoTrailingSlash()
    {
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", "/tmp//");
        QCOMPARE(homeDirectory(), u"/tmp"_s);
        qunsetenv("HOME");
        QVERIFY(homeDirectory().startsWith(u'/')); // from the user database
        qputenv("HOME", home);
    }

    void argumentsAreHandedOnWithoutAShell()
    {
        const QStringList arguments{u"a b"_s, u"$HOME"_s, u"'\""_s, u"*"_s, u""_s, u"街"_s};
        Outcome<QString> outcome;
        m_service->runProcess(arguments, outcome.completion());
        QTRY_VERIFY_WITH_TIMEOUT(outcome.isSettled(), patience);
        QCOMPARE(m_tool->calls(), QList<QStringList>({arguments}));
    }

    void theResultIsWhatTheToolWrote()
    {
        m_tool->respond("bytes a\\nb\n"
                        "stderr print noise");
        QCOMPARE(run().value(), u"a\nb"_s);
    }

    void outputLargerThanAPipeIsCollectedWhole()
    {
        m_tool->respond("fill 5000000 x");
        QCOMPARE(run().value(), QString(5'000'000, u'x'));
    }

    void outputThatIsNotUtf8IsEmptyText()
    {
        m_tool->respond("bytes good \\377 bad");
        QCOMPARE(run().value(), QString());
    }

    void aFailureCarriesStandardErrorUnchanged()
    {
        m_tool->respond("fail ERROR: it broke");
        QCOMPARE(run().error(), u"Failed to fetch info: ERROR: it broke\n"_s);
    }

    void aLineBreakOnStandardErrorCounts()
    {
        m_tool->respond("fail ");
        QCOMPARE(run().error(), u"Failed to fetch info: \n"_s);
    }

    void withoutStandardErrorTheExitCodeIsNamed()
    {
        m_tool->respond("exit 1");
        QCOMPARE(run().error(), u"Failed to fetch info: Exit code 1"_s);
        m_tool->respond("exit 2");
        QCOMPARE(run().error(), u"Failed to fetch info: Exit code 2"_s);
    }

    void standardErrorOutsideUtf8CountsAsEmpty()
    {
        m_tool->respond("stderr bytes \\377\n"
                        "exit 3");
        QCOMPARE(run().error(), u"Failed to fetch info: Exit code 3"_s);
    }

    void deathByASignalIsAFailure()
    {
        m_tool->respond("print output\n"
                        "die");
        QCOMPARE(run().error(), u"Failed to fetch info: Exit code 9"_s);
    }

    void floodingStandardErrorDoesNotBlock()
    {
        m_tool->respond("stderr fill 10485760 e\n"
                        "print done\n"
                        "exit 1");
        QCOMPARE(run().error().size(), u"Failed to fetch info: "_s.size() + 10'485'760);
    }

    void a64MegabyteLineIsCollectedWhole()
    {
        m_tool->respond("fill 67108864 x");
        QCOMPARE(run().value().size(), 67'108'864);
    }

    void runsDoNotTakeTheActiveSlot()
    {
        m_tool->respond("wait go");
        Outcome<QString> outcome;
        m_service->runProcess({}, outcome.completion());
        QTRY_COMPARE_WITH_TIMEOUT(m_tool->processIdentifiers().size(), 1, patience);
        QVERIFY(!m_service->activeProcess());
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(outcome.isSettled(), patience);
    }

    void callsRunSideBySide()
    {
        m_tool->respond("on 1 wait go");
        Outcome<QString> first;
        Outcome<QString> second;
        m_service->runProcess({}, first.completion());
        QTRY_COMPARE_WITH_TIMEOUT(m_tool->processIdentifiers().size(), 1, patience);
        m_service->runProcess({}, second.completion());
        QTRY_VERIFY_WITH_TIMEOUT(second.isSettled(), patience);
        QVERIFY(!first.isSettled());
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(first.isSettled(), patience);
        QCOMPARE(first.count(), 1);
    }

    void aVideoIsFetched()
    {
        m_tool->respond(R"(print {"id":"i","title":"t"})");
        const auto outcome = fetch(u"https://x/"_s, false);
        QCOMPARE(outcome.value().title, u"t"_s);
        QCOMPARE(outcome.value().originalURL, u"https://x/"_s);
        QCOMPARE(m_tool->calls().first().last(), u"https://x/"_s);
        QVERIFY(m_tool->calls().first().contains(u"--no-playlist"_s));
    }

    void badVideoOutputGivesTheReadersOwnError_data()
    {
        QTest::addColumn<QByteArray>("response");
        QTest::newRow("no JSON") << QByteArray("print garbage");
        QTest::newRow("nothing") << QByteArray("exit 0");
        QTest::newRow("not UTF-8") << QByteArray(R"(bytes {"title":"\377"})");
        QTest::newRow("several lines") << QByteArray("print {}\nprint {}");
    }

    void badVideoOutputGivesTheReadersOwnError()
    {
        QFETCH(QByteArray, response);
        m_tool->respond(response);
        const auto outcome = fetch(u"https://x/"_s, false);
        QVERIFY(std::holds_alternative<JSONReaderError>(outcome.reply()));
    }

    void jsonWithoutAnObjectIsAParseError()
    {
        m_tool->respond("print [1]");
        QCOMPARE(fetch(u"https://x/"_s, false).error(),
                 u"Parse error: Could not parse video JSON"_s);
    }

    void metadataOutsideUtf8IsNotRead()
    {
        m_tool->respond("");
        const QString ofNothing = fetch(u"https://x/"_s, false).error();
        m_tool->respond("bytes {\"title\":\"\\377\"}");
        QCOMPARE(fetch(u"https://x/"_s, false).error(), ofNothing);
        // Not only the line that has it is lost.
        m_tool->respond(R"(print {"id":"a"})"
                        "\n"
                        "bytes {\"id\":\"\\377\"}");
        QCOMPARE(fetch(u"https://x/"_s, true).value().title, u"Playlist (0 videos)"_s);
    }

    void aPlaylistNeverFailsOnContent()
    {
        m_tool->respond("print nonsense\n"
                        R"(print {"id":"a"})");
        QCOMPARE(fetch(u"https://x/"_s, true).value().title, u"Playlist (1 videos)"_s);
    }

    void aFailedPlaylistLosesItsOutput()
    {
        m_tool->respond(R"(print {"id":"a"})"
                        "\n"
                        "fail private");
        QCOMPARE(fetch(u"https://x/"_s, true).error(), u"Failed to fetch info: private\n"_s);
    }

    void aURLLikeAnOptionNeverReachesTheTool()
    {
        for (const bool asPlaylist : {false, true}) {
            const auto outcome = fetch(u"--exec=rm"_s, asPlaylist);
            QVERIFY(outcome.error().startsWith(u"Failed to fetch info: The URL"_s));
            QVERIFY(outcome.error().contains(u"--exec=rm"_s));
        }
        QVERIFY(m_tool->calls().isEmpty());
    }

    void theNotFoundTextIsKeptForCallers()
    {
        QCOMPARE(YTDLPError::notFound().errorDescription(),
                 u"yt-dlp not found. Please install via: brew install yt-dlp"_s);
    }

    void endingTheProcessesSettlesEveryCallOnce()
    {
        m_tool->respond("wait never");
        QList<Outcome<QString>> outcomes(5);
        for (auto &outcome : outcomes)
            m_service->runProcess({}, outcome.completion());
        QTRY_COMPARE_WITH_TIMEOUT(m_tool->processIdentifiers().size(), 5, patience);
        m_service->endProcesses();
        for (const auto &outcome : std::as_const(outcomes))
            QCOMPARE(outcome.count(), 1);
        for (const qint64 process : m_tool->processIdentifiers())
            QVERIFY(!isAlive(process));
        // It serves on.
        m_tool->respond("print again");
        QCOMPARE(run().value(), u"again\n"_s);
    }

private:
    Outcome<QString> run()
    {
        Outcome<QString> outcome;
        m_service->runProcess({}, outcome.completion());
        (void)waitFor([&] { return outcome.isSettled(); });
        return outcome;
    }

    Outcome<VideoInfo> fetch(const QString &url, bool asPlaylist)
    {
        Outcome<VideoInfo> outcome;
        if (asPlaylist)
            m_service->fetchPlaylistInfo(url, u"none"_s, outcome.completion());
        else
            m_service->fetchInfo(url, u"none"_s, outcome.completion());
        (void)waitFor([&] { return outcome.isSettled(); });
        return outcome;
    }

    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<YTDLPService> m_service;
};

QTEST_GUILESS_MAIN(ServiceTest)
#include "ServiceTest.moc"
