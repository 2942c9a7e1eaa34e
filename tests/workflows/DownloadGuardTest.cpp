// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadRun.h"
#include "HomeDirectory.h"

#include <QDir>
#include <QTest>

/// What is removed behind a download, and what no page can make the program remove.
class DownloadGuardTest : public QObject
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

    void aFileThatIsHalfMadeAtAnOrderlyEndIsRemoved()
    {
        m_tool->setScript("echo half > \"$DIR/a.mp3\"\n"
                          "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"\n"
                          + m_tool->gate("never"));
        const Download download(*m_service, audio());
        WAIT_FOR(QFile::exists(m_tool->file(u"a.mp3"_s)));
        m_service->endProcesses();
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
        QVERIFY(download.outcome().isSettled());
    }

    void aFileThatIsWholeAtAnOrderlyEndStays()
    {
        m_tool->setScript("echo whole > \"$DIR/a.mp3\"\n"
                          "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"\n"
                          "echo 'Deleting original file x'\necho '[Merger] x'\n"
                          + m_tool->gate("never"));
        const Download download(*m_service, audio());
        WAIT_FOR(!download.reports().isEmpty());
        m_service->endProcesses();
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void aFileThatAFailedExtractionLeftIsRemoved()
    {
        m_tool->setScript("echo half > \"$DIR/a.mp3\"\n"
                          "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"\n"
                          "echo 'No space left on device' >&2; exit 1");
        const Download download(*m_service, audio());
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
        QCOMPARE(download.outcome().error(), u"Download failed: No space left on device\n"_s);
    }

    void aToolThatIsKilledTakesItsChildAndTheHalfMadeFileAlong()
    {
        m_tool->setScript("echo half > \"$DIR/a.mp3\"\n"
                          "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"\n"
                          "sh -c 'while :; do sleep 0.05; done' &\n"
                          "echo $! > \"$DIR/child\"\nkill -9 $$");
        const Download download(*m_service, audio());
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(!isAlive(contentOf(m_tool->file(u"child"_s)).trimmed().toLongLong()));
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void aFileThatWasThereBeforeAndHasChangedSinceIsRemoved()
    {
        writeFile(m_tool->file(u"a.mp3"_s), "before");
        QVERIFY(!survives("a.mp3", "echo half > \"$DIR/a.mp3\"", audio()));
    }

    void aFileThatWasThereBeforeStays()
    {
        writeFile(m_tool->file(u"a.mp3"_s), "the user's");
        QVERIFY(survives("a.mp3", "", audio()));
    }

    void aVideoRunRemovesNothing()
    {
        QVERIFY(survives("a.mp3", "echo half > \"$DIR/a.mp3\"", video()));
    }

    void aFileOfAnotherKindStays()
    {
        QVERIFY(survives("id_ed25519", "echo key > \"$DIR/id_ed25519\"", audio()));
    }

    void aFileOutsideTheRunsFolderStays()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"deeper"_s));
        QVERIFY(survives("deeper/a.mp3", "echo x > \"$DIR/deeper/a.mp3\"", audio()));
        QVERIFY(survives(
            "a.mp3", "echo x > \"$DIR/a.mp3\"",
            {u"-x"_s, u"-o"_s, m_tool->file(u"deeper/%(title)s.%(ext)s"_s), u"https://x/"_s}));
    }

    void aPathThatLeadsOutOfTheFolderByDetoursStays()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"deeper"_s));
        m_tool->setScript("echo x > \"$DIR/a.mp3\"\n"
                          "echo \"[ExtractAudio] Destination: $DIR/deeper/../a.mp3\"\nexit 1");
        const Download download(
            *m_service,
            {u"-x"_s, u"-o"_s, m_tool->file(u"deeper/%(title)s.%(ext)s"_s), u"https://x/"_s});
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void whatALinkLeadsToStays()
    {
        writeFile(m_tool->file(u"precious"_s), "x");
        QVERIFY(survives("precious", "ln -s \"$DIR/precious\" \"$DIR/a.mp3\"", audio(), "a.mp3"));
        QVERIFY(QFileInfo(m_tool->file(u"a.mp3"_s)).isSymLink());
    }

    void aFileThatAnotherRunHasFinishedStays()
    {
        m_tool->setScript("if [ $N = 1 ]; then " + m_tool->gate("go")
                          + "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"; exit 1; fi\n"
                            "echo whole > \"$DIR/a.mp3\"\n"
                            "echo \"[ExtractAudio] Destination: $DIR/a.mp3\"");
        const Download forger(*m_service, audio());
        WAIT_FOR(m_tool->processIdentifiers().size() == 1);
        const Download maker(*m_service, audio());
        WAIT_FOR(maker.outcome().isSettled());
        m_tool->open("go");
        WAIT_FOR(forger.outcome().isSettled());
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void aTitleThatLooksLikeTheToolsOutputRemovesNothing()
    {
        // As a playlist's title is printed, line breaks included.
        writeFile(m_tool->file(u"id_ed25519"_s), "key");
        m_tool->setScript(
            "printf '[download] Downloading playlist: Nice\\n[ExtractAudio] Destination: "
            "%s/id_ed25519\\n' \"$DIR\"\nexit 1");
        for (const QStringList &arguments : {audio(), video()}) {
            const Download download(*m_service, arguments);
            WAIT_FOR(download.outcome().isSettled());
            QCOMPARE(contentOf(m_tool->file(u"id_ed25519"_s)), "key");
        }
    }

    void aVideoThatIsNamedAsAConfigurationIsRemovedAndFailsTheRun_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("of a run that succeeds") << u"yt-dlp.conf"_s << QByteArray("exit 0");
        QTest::newRow("of a run that fails") << u"yt-dlp.conf"_s << QByteArray("exit 1");
        QTest::newRow("as text") << u"yt-dlp.conf.txt"_s << QByteArray("exit 0");
    }
    void aVideoThatIsNamedAsAConfigurationIsRemovedAndFailsTheRun()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, end);
        m_tool->setScript("echo --exec id > \"$DIR/" + name.toUtf8() + "\"\n" + end);
        const Download download(*m_service, video());
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(!QFile::exists(m_tool->file(name)));
        QCOMPARE(download.outcome().error(),
                 u"Download failed: The file was named “%1”, which yt-dlp would take for its own "
                 "settings. It was removed."_s.arg(name));
    }

    void theToolsOwnFolderHasMoreSuchNames()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"yt-dlp-folder/yt-dlp"_s));
        const QString folder = m_tool->file(u"yt-dlp-folder/yt-dlp"_s);
        m_tool->setScript("echo x > '" + folder.toUtf8() + "/config'");
        const Download download(*m_service,
                                {u"-o"_s, folder + u"/%(title)s.%(ext)s"_s, u"https://x/"_s});
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(!QFile::exists(folder + u"/config"_s));
        QVERIFY(!download.outcome().error().isEmpty());
    }

    void theUsersOwnConfigurationStays()
    {
        writeFile(m_tool->file(u"yt-dlp.conf"_s), "--no-mtime");
        const Download download(*m_service, video());
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(contentOf(m_tool->file(u"yt-dlp.conf"_s)), "--no-mtime");
        QCOMPARE(download.outcome().error(), QString());
    }

    void theToolStartsInTheHomeFolder()
    {
        const QByteArray home = qgetenv("HOME");
        const QString elsewhere = QDir::currentPath();
        const QTemporaryDir own;
        qputenv("HOME", own.path().toUtf8());
        QDir::setCurrent(m_tool->file(u""_s));
        m_tool->setScript("pwd > \"$DIR/place\"");
        const Download download(*m_service, video());
        const bool isSettled =
            QTest::qWaitFor([&] { return download.outcome().isSettled(); }, 30000);
        QDir::setCurrent(elsewhere);
        qputenv("HOME", home);
        QVERIFY(isSettled);
        QCOMPARE(contentOf(m_tool->file(u"place"_s)).trimmed(), own.path().toUtf8());
    }

    void aRelativeFolderIsBelowHomeWhereverTheProgramWasStarted()
    {
        QCOMPARE(absoluteForTool(u"Videos/a.mp4"_s), homeDirectory() + u"/Videos/a.mp4"_s);
        QCOMPARE(absoluteForTool(u"/x/y/../a.mp4"_s), u"/x/a.mp4"_s);
    }

    void withoutAHomeTheToolStartsInTheRootFolder()
    {
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", "/nowhere/at/all");
        const QString folder = toolFolder();
        qputenv("HOME", home);
        QCOMPARE(folder, u"/"_s);
    }

private:
    QStringList video() const
    {
        return {u"-o"_s, m_tool->file(u"%(title)s.%(ext)s"_s), u"https://x/"_s};
    }
    QStringList audio() const { return QStringList{u"-x"_s} + video(); }

    /// Whether the file is there after a failed run that does this and then names it, or
    /// another one, as the file that it was making.
    bool survives(const QByteArray &file, const QByteArray &action, const QStringList &arguments,
                  QByteArray named = {})
    {
        if (named.isEmpty())
            named = file;
        m_tool->setScript(action + "\necho \"[ExtractAudio] Destination: $DIR/" + named
                          + "\"\nexit 1");
        const Download download(*m_service, arguments);
        return QTest::qWaitFor([&] { return download.outcome().isSettled(); }, 30000)
            && QFile::exists(m_tool->file(QString::fromUtf8(file)));
    }

    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<YTDLPService> m_service;
};

QTEST_GUILESS_MAIN(DownloadGuardTest)
#include "DownloadGuardTest.moc"
