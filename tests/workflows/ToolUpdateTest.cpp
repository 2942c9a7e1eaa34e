// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateFixture.h"

/// What an update makes of a good release, and how it refuses any other.
class ToolUpdateTest : public UpdateFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { UpdateFixture::init(); }
    void cleanup() { UpdateFixture::cleanup(); }

    void aReleaseIsPutInPlaceAndStarts()
    {
        const UpdateOutcome outcome = updated();
        QCOMPARE(outcome.error, QString());
        QCOMPARE(outcome.version.text, u"2026.08.19"_s);
        QVERIFY(isOwn(own()));
        QCOMPARE(printed(own()), "2026.08.19\n");
        QCOMPARE(m_server->requests,
                 QStringList({u"/SHA2-256SUMS"_s, u"/SHA2-256SUMS.sig"_s, u"/yt-dlp"_s}));
        QCOMPARE(ownFolder(), {u"yt-dlp"_s});
    }

    void howFarItIsIsReported()
    {
        updated();
        const std::scoped_lock lock(m_mutex);
        QVERIFY(!m_progress.isEmpty());
        QVERIFY(m_progress.first().part < 0);
        const auto hasPart = [this](UpdateProgress::Step step, double part) {
            return std::any_of(m_progress.begin(), m_progress.end(), [&](const auto &each) {
                return each.step == step && qFuzzyCompare(each.part, part);
            });
        };
        QVERIFY(hasPart(UpdateProgress::Step::downloading, 1));
        QVERIFY(hasPart(UpdateProgress::Step::preparing, 1));
        QCOMPARE(m_progress.last().part, 1.0); // it never goes back
    }

    void theInstalledFormHasCompiledModules()
    {
        updated();
        QCOMPARE(entries(own()), QStringList({u"__main__.py"_s, u"__main__.pyc"_s}));
        QVERIFY(contentOf(own()).contains(
            ownMark(QCryptographicHash::hash(m_server->answers[u"yt-dlp"_s].first().body,
                                             QCryptographicHash::Sha256)
                        .toHex())));
    }

    void whatDoesNotCompileStaysASource()
    {
        offer(*m_server, *m_signer, zippedTool("this is no Python\n"));
        QVERIFY(updated().error.contains(u"does not start"));
    }

    void anOldToolOfOursIsReplaced()
    {
        updated();
        offer(*m_server, *m_signer, zippedTool(versionCode("2026.09.01")));
        m_present = versionFromOutput("2026.08.19");
        QCOMPARE(updated().version.text, u"2026.09.01"_s);
        QCOMPARE(printed(own()), "2026.09.01\n");
    }

    void theSameVersionMayBeInstalled()
    {
        m_present = versionFromOutput("2026.08.19");
        QVERIFY(updated().isSuccess());
    }

    void theSystemsProxyIsUsed()
    {
        qputenv("http_proxy", m_server->url().toEncoded());
        m_source.folder = QUrl(u"http://releases.invalid/latest/"_s);
        const UpdateOutcome outcome = updated();
        qunsetenv("http_proxy");
        QCOMPARE(outcome.error, QString());
        QCOMPARE(m_server->requests.first(), u"http://releases.invalid/latest/SHA2-256SUMS"_s);
    }

    void aRedirectToHttpsIsFollowed()
    {
        ReleaseServer second;
        answer("SHA2-256SUMS",
               {.status = 302,
                .location = "https://127.0.0.1:" + QByteArray::number(second.serverPort()) + "/"});
        QVERIFY(updated().error.startsWith(u"yt-dlp could not be downloaded: "));
        QCOMPARE(second.strange.left(1), QByteArray("\x16")); // TLS begins so
    }

    void aMissingSignatureIsAnError()
    {
        answer("SHA2-256SUMS.sig", {.status = 404});
        checkRefused(u"yt-dlp could not be downloaded: the server answered 404."_s);
    }

    void aBadSignatureIsRefusedAfterARetry()
    {
        answer("SHA2-256SUMS.sig", {.body = m_signer->signatureOf("something else")});
        checkRefused(u"The new yt-dlp was not used: its signature is not good."_s);
        QCOMPARE(m_server->requests.count(u"/SHA2-256SUMS"_s), 2);
        QCOMPARE(m_server->requests.count(u"/yt-dlp"_s), 0);
    }

    void aSignatureThatIsNoneIsRefused()
    {
        answer("SHA2-256SUMS.sig", {.body = "no signature"});
        checkRefused(u"The new yt-dlp was not used: its signature is not good."_s);
    }

    void anEmptySignatureIsRefused()
    {
        answer("SHA2-256SUMS.sig", {.body = ""});
        checkRefused(u"The new yt-dlp was not used: its signature is not good."_s);
    }

    void aSignatureByAnotherKeyIsRefused()
    {
        const Signer other;
        const QByteArray sums = m_server->answers[u"SHA2-256SUMS"_s].first().body;
        answer("SHA2-256SUMS.sig", {.body = other.signatureOf(sums)});
        checkRefused(u"The new yt-dlp was not used: its signature is not good."_s);
    }

    void aWrongSumIsRefusedAfterARetry()
    {
        answer("yt-dlp", {.body = zippedTool(versionCode("2026.08.20"))});
        checkRefused(u"The new yt-dlp was not used: it is not what was released."_s);
        QCOMPARE(m_server->requests.count(u"/yt-dlp"_s), 2);
    }

    void aReleaseAppearingMeanwhileIsTakenOnRetry()
    {
        const QByteArray newer = zippedTool(versionCode("2026.08.20"));
        const QByteArray sums = sumsOf(newer);
        m_server->answers[u"yt-dlp"_s] = {{.body = newer}};
        m_server->answers[u"SHA2-256SUMS"_s].append({.body = sums});
        m_server->answers[u"SHA2-256SUMS.sig"_s].append({.body = m_signer->signatureOf(sums)});
        QCOMPARE(updated().version.text, u"2026.08.20"_s);
    }

    void sumsWithoutTheToolAreRefused()
    {
        const QByteArray sums = QByteArray(64, 'e') + "  yt-dlp.exe\n";
        answer("SHA2-256SUMS", {.body = sums});
        answer("SHA2-256SUMS.sig", {.body = m_signer->signatureOf(sums)});
        checkRefused(u"The new yt-dlp was not used: the release does not list it."_s);
    }

    void whatIsNoZipIsRefused()
    {
        offer(*m_server, *m_signer, "#!/bin/sh\necho 2026.08.19\n");
        checkRefused(u"The new yt-dlp was not used: it is damaged."_s);
    }

    void aToolThatDoesNotStartIsRefused()
    {
        offer(*m_server, *m_signer, zippedTool("raise SystemExit('cannot')\n"));
        checkRefused(u"The new yt-dlp was not used: it does not start (cannot)."_s);
    }

    void aToolThatPrintsNonsenseIsRefused()
    {
        offer(*m_server, *m_signer, zippedTool("print('hello')\n"));
        checkRefused(u"The new yt-dlp was not used: it does not tell its version."_s);
    }

    void aToolThatHangsIsRefused()
    {
        m_source.timeToStart = 500ms;
        offer(*m_server, *m_signer, zippedTool("import time\ntime.sleep(1000)\n"));
        checkRefused(u"The new yt-dlp was not used: it does not answer."_s);
    }

    void aToolOlderThanTheInstalledIsRefused()
    {
        m_present = versionFromOutput("2026.08.20");
        checkRefused(u"The new yt-dlp was not used: the latest release, 2026.08.19, is older than "
                     "what is here, 2026.08.20."_s);
    }

    void aToolTheSiteRejectsIsRefused()
    {
        offer(*m_server, *m_signer, zippedTool(versionCode("2026.01.30")));
        checkRefused(u"The new yt-dlp was not used: YouTube does not answer the latest release, "
                     "2026.01.30."_s);
    }

private:
    static QByteArray printed(const QString &program)
    {
        QProcess process;
        process.start(program, {u"--version"_s});
        process.waitForFinished();
        return process.readAllStandardOutput();
    }
    static QStringList entries(const QString &zip)
    {
        QProcess process;
        process.start(u"python3"_s,
                      {u"-c"_s,
                       u"import sys, zipfile\n"
                       "print(*sorted(zipfile.ZipFile(sys.argv[1]).namelist()))"_s,
                       zip});
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(u' ');
    }
};

QTEST_GUILESS_MAIN(ToolUpdateTest)
#include "ToolUpdateTest.moc"
