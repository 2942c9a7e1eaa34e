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

    void quittingRemovesAnIncompleteFile()
    {
        m_tool->respond("write a.mp3 half\n"
                        "print [ExtractAudio] Destination: {dir}/a.mp3\n"
                        "wait never");
        const Download download(*m_service, audio());
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_tool->file(u"a.mp3"_s)), patience);
        m_service->endProcesses();
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
        QVERIFY(download.outcome().isSettled());
    }

    void quittingKeepsACompleteFile()
    {
        m_tool->respond("write a.mp3 whole\n"
                        "print [ExtractAudio] Destination: {dir}/a.mp3\n"
                        "print Deleting original file x\n"
                        "print [Merger] x\n"
                        "wait never");
        const Download download(*m_service, audio());
        QTRY_VERIFY_WITH_TIMEOUT(!download.reports().isEmpty(), patience);
        m_service->endProcesses();
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void aFailedExtractionRemovesItsFile()
    {
        m_tool->respond("write a.mp3 half\n"
                        "print [ExtractAudio] Destination: {dir}/a.mp3\n"
                        "fail No space left on device");
        const Download download(*m_service, audio());
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
        QCOMPARE(download.outcome().error(), u"Download failed: No space left on device\n"_s);
    }

    void killingTheToolRemovesChildAndIncompleteFile()
    {
        m_tool->respond("write a.mp3 half\n"
                        "print [ExtractAudio] Destination: {dir}/a.mp3\n"
                        "child\n"
                        "die");
        const Download download(*m_service, audio());
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(!isAlive(contentOf(m_tool->file(u"child"_s)).trimmed().toLongLong()));
        QVERIFY(!QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void anOverwrittenFileIsRemoved()
    {
        writeFile(m_tool->file(u"a.mp3"_s), "before");
        QVERIFY(!survives("a.mp3", "write a.mp3 half\n", audio()));
    }

    void aFileThatWasThereBeforeStays()
    {
        writeFile(m_tool->file(u"a.mp3"_s), "the user's");
        QVERIFY(survives("a.mp3", "", audio()));
    }

    void aVideoRunRemovesNothing() { QVERIFY(survives("a.mp3", "write a.mp3 half\n", video())); }

    void aFileOfAnotherKindStays()
    {
        QVERIFY(survives("id_ed25519", "write id_ed25519 key\n", audio()));
    }

    void aFileOutsideTheRunsFolderStays()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"deeper"_s));
        QVERIFY(survives("deeper/a.mp3", "write deeper/a.mp3 x\n", audio()));
        QVERIFY(survives(
            "a.mp3", "write a.mp3 x\n",
            {u"-x"_s, u"-o"_s, m_tool->file(u"deeper/%(title)s.%(ext)s"_s), u"https://x/"_s}));
    }

    void aPathOutsideTheFolderIsNotRemoved()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"deeper"_s));
        m_tool->respond("write a.mp3 x\n"
                        "print [ExtractAudio] Destination: {dir}/deeper/../a.mp3\n"
                        "exit 1");
        const Download download(
            *m_service,
            {u"-x"_s, u"-o"_s, m_tool->file(u"deeper/%(title)s.%(ext)s"_s), u"https://x/"_s});
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void whatALinkLeadsToStays()
    {
        writeFile(m_tool->file(u"precious"_s), "x");
        QVERIFY(survives("precious", "link a.mp3 precious\n", audio(), "a.mp3"));
        QVERIFY(QFileInfo(m_tool->file(u"a.mp3"_s)).isSymLink());
    }

    void aFileThatAnotherRunHasFinishedStays()
    {
        m_tool->respond("on 1 wait go\n"
                        "on 1 print [ExtractAudio] Destination: {dir}/a.mp3\n"
                        "on 1 exit 1\n"
                        "write a.mp3 whole\n"
                        "print [ExtractAudio] Destination: {dir}/a.mp3");
        const Download forger(*m_service, audio());
        QTRY_COMPARE_WITH_TIMEOUT(m_tool->processIdentifiers().size(), 1, patience);
        const Download maker(*m_service, audio());
        QTRY_VERIFY_WITH_TIMEOUT(maker.outcome().isSettled(), patience);
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(forger.outcome().isSettled(), patience);
        QVERIFY(QFile::exists(m_tool->file(u"a.mp3"_s)));
    }

    void aTitleLikeToolOutputRemovesNothing()
    {
        // As a playlist's title is printed, line breaks included.
        writeFile(m_tool->file(u"id_ed25519"_s), "key");
        m_tool->respond("print [download] Downloading playlist: Nice\n"
                        "print [ExtractAudio] Destination: {dir}/id_ed25519\n"
                        "exit 1");
        for (const QStringList &arguments : {audio(), video()}) {
            const Download download(*m_service, arguments);
            QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
            QCOMPARE(contentOf(m_tool->file(u"id_ed25519"_s)), "key");
        }
    }

    void aVideoNamedLikeAConfigurationFailsTheRun_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("of a run that succeeds") << u"yt-dlp.conf"_s << QByteArray("exit 0");
        QTest::newRow("of a run that fails") << u"yt-dlp.conf"_s << QByteArray("exit 1");
        QTest::newRow("as text") << u"yt-dlp.conf.txt"_s << QByteArray("exit 0");
    }
    void aVideoNamedLikeAConfigurationFailsTheRun()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, end);
        m_tool->respond("write " + name.toUtf8() + " --exec id\n" + end);
        const Download download(*m_service, video());
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(!QFile::exists(m_tool->file(name)));
        QCOMPARE(download.outcome().error(),
                 u"Download failed: The file was named “%1”, which yt-dlp would take for its own "
                 "settings. It was removed."_s.arg(name));
    }

    void theToolsOwnFolderHasMoreSuchNames()
    {
        QVERIFY(QDir(m_tool->file(u""_s)).mkpath(u"yt-dlp-folder/yt-dlp"_s));
        const QString folder = m_tool->file(u"yt-dlp-folder/yt-dlp"_s);
        m_tool->respond("write " + folder.toUtf8() + "/config x");
        const Download download(*m_service,
                                {u"-o"_s, folder + u"/%(title)s.%(ext)s"_s, u"https://x/"_s});
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(!QFile::exists(folder + u"/config"_s));
        QVERIFY(!download.outcome().error().isEmpty());
    }

    void theUsersOwnConfigurationStays()
    {
        writeFile(m_tool->file(u"yt-dlp.conf"_s), "--no-mtime");
        const Download download(*m_service, video());
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
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
        m_tool->respond("write place {cwd}");
        const Download download(*m_service, video());
        const bool isSettled =
            QTest::qWaitFor([&] { return download.outcome().isSettled(); }, 30000);
        QDir::setCurrent(elsewhere);
        qputenv("HOME", home);
        QVERIFY(isSettled);
        QCOMPARE(contentOf(m_tool->file(u"place"_s)).trimmed(), own.path().toUtf8());
    }

    void aRelativeFolderIsBelowHome()
    {
        QCOMPARE(absoluteForTool(u"Videos/a.mp4"_s), homeDirectory() + u"/Videos/a.mp4"_s);
        QCOMPARE(absoluteForTool(u"/x/y/../a.mp4"_s), u"/x/a.mp4"_s);
    }

    void withoutHomeTheToolStartsInRoot()
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
        m_tool->respond(action + "print [ExtractAudio] Destination: {dir}/" + named + "\nexit 1");
        const Download download(*m_service, arguments);
        return QTest::qWaitFor([&] { return download.outcome().isSettled(); }, 30000)
            && QFile::exists(m_tool->file(QString::fromUtf8(file)));
    }

    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<YTDLPService> m_service;
};

QTEST_GUILESS_MAIN(DownloadGuardTest)
#include "DownloadGuardTest.moc"
