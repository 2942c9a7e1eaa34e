// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateFixture.h"

#include <csignal>
#include <sys/resource.h>

namespace {

/// Lowers the size that a file may have, as a full disk does, for as long as it lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace

/// What may be wrong with the machine that an update is made on.
class UpdateMachineTest : public UpdateFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { UpdateFixture::init(); }
    void cleanup() { UpdateFixture::cleanup(); }

    void withoutPythonNothingIsDownloaded()
    {
        provideOnly({u"gpgv"_s});
        checkRefused(u"yt-dlp needs Python 3.10 or newer; it is not installed."_s);
        QCOMPARE(m_server->requests, QStringList());
    }

    void withAnOldPythonNothingIsDownloaded()
    {
        stub(u"python3"_s, "echo 3.9");
        checkRefused(u"yt-dlp needs Python 3.10 or newer; here is 3.9."_s);
        QCOMPARE(m_server->requests, QStringList());
    }

    void aPythonThatDoesNotStartIsSaid()
    {
        stub(u"python3"_s, "exit 1");
        checkRefused(u"yt-dlp needs Python 3.10 or newer; what is installed does not start."_s);
    }

    void withoutGpgvNothingIsUsed()
    {
        provideOnly({u"python3"_s});
        checkRefused(u"A new yt-dlp cannot be checked: gpgv is not installed."_s);
        QCOMPARE(m_server->requests.count(u"/yt-dlp"_s), 0);
    }

    void gpgvsExitCodeAloneIsNotBelieved()
    {
        stub(u"gpgv"_s, "exit 0");
        checkRefused(u"The new yt-dlp was not used: its signature is not good."_s);
    }

    void anUncreatableFolderIsAnError()
    {
        writeFile(m_home->filePath(u".local"_s), "a file");
        const UpdateOutcome outcome = updated();
        QCOMPARE(outcome.error, u"The folder %1 could not be made."_s.arg(QFileInfo(own()).path()));
    }

    void aReadOnlyFolderIsAnError()
    {
        m_ownPath = u"/proc/yt-dlp"_s; // not even by root
        const UpdateOutcome outcome = updated();
        m_ownPath.clear();
        QVERIFY2(outcome.error.startsWith(u"/proc cannot be written: "), qPrintable(outcome.error));
    }

    void aFullDiskWhileDownloadingIsAnError()
    {
        prepareOld();
        answer("yt-dlp", {.body = QByteArray(500'000, 'x')});
        const FullDisk disk(100'000);
        checkRefused(u"There is no room left on the disk for a new yt-dlp."_s);
    }

    void aFullDiskWhilePreparingIsAnError()
    {
        prepareOld();
        // Small as a zip, large as a compiled module.
        QByteArray code = versionCode("2026.08.19");
        for (int number = 0; number < 20000; ++number)
            code += "x = 'the same'\n";
        offer(*m_server, *m_signer, zippedTool(code));
        const FullDisk disk(20'000);
        checkRefused(u"There is no room left on the disk for a new yt-dlp."_s);
    }

    void whatSomebodyElsePutThereStays_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *const kind : {"file", "folder", "link"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void whatSomebodyElsePutThereStays()
    {
        QFETCH(QString, kind);
        QVERIFY(QDir().mkpath(QFileInfo(own()).path()));
        if (kind == u"file")
            writeFile(own(), "#!/bin/sh\n");
        else if (kind == u"folder")
            QVERIFY(QDir().mkpath(own()));
        else
            QVERIFY(QFile::link(u"/etc/passwd"_s, own()));
        const UpdateOutcome outcome = updated();
        QCOMPARE(m_server->requests, QStringList());
        QCOMPARE(outcome.error,
                 u"Quillon did not put %1 there, so it stays as it is."_s.arg(own()));
        QCOMPARE(ownFolder(), {u"yt-dlp"_s});
        QCOMPARE(QFileInfo(own()).isSymLink(), kind == u"link");
        QCOMPARE(QFileInfo(own()).isDir(), kind == u"folder");
        QVERIFY(!isOwn(own()));
    }

    void whatAppearsThereDuringAnUpdateStays()
    {
        stub(u"python3"_s,
             "case \"$*\" in *pack_tool.py*) echo mine > '" + own().toUtf8()
                 + "';; esac\nexec /usr/bin/python3 \"$@\"");
        const UpdateOutcome outcome = updated();
        QVERIFY(outcome.error.startsWith(u"Quillon did not put"));
        QCOMPARE(contentOf(own()), "mine\n");
        QCOMPARE(ownFolder(), {u"yt-dlp"_s});
    }

    void aGpgvThatHangsIsSaid()
    {
        stub(u"gpgv"_s, "kill -9 $$");
        checkRefused(u"A new yt-dlp cannot be checked: gpgv does not answer."_s);
    }

    void aSecondUpdateOnTheMachineIsRefused()
    {
        ToolFolder other(own());
        QCOMPARE(other.take(), std::nullopt);
        QCOMPARE(updated().error, u"Another Quillon is updating yt-dlp at this moment."_s);
    }
};

QTEST_GUILESS_MAIN(UpdateMachineTest)
#include "UpdateMachineTest.moc"
