// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateFixture.h"

/// What a server and the network may do to an update.
class UpdateDownloadTest : public UpdateFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { UpdateFixture::init(); }
    void cleanup() { UpdateFixture::cleanup(); }

    void aRefusalIsAnError()
    {
        answer("yt-dlp", {.body = "not here", .status = 404});
        checkRefused(u"yt-dlp could not be downloaded: the server answered 404."_s);
    }

    void aMissingServerIsAnError()
    {
        m_server->close();
        checkRefused(u"yt-dlp could not be downloaded: Connection refused."_s);
    }

    void aRedirectToHttpIsNotFollowed()
    {
        ReleaseServer second;
        answer("yt-dlp", {.status = 302, .location = second.url().toEncoded()});
        checkRefused(u"yt-dlp could not be downloaded: the server leads to an unsafe URL."_s);
        QCOMPARE(second.requests, QStringList());
    }

    void aRedirectToAFileIsNotFollowed()
    {
        answer("yt-dlp", {.status = 302, .location = "file:///etc/passwd"});
        const QString error = refused();
        QVERIFY2(error.startsWith(u"yt-dlp could not be downloaded: "), qPrintable(error));
    }

    void aServerThatSaysNothingIsGivenUp()
    {
        m_source.longestSilence = 300ms;
        answer("SHA2-256SUMS", {.isSilent = true});
        checkRefused(u"yt-dlp could not be downloaded: nothing came for 1 seconds."_s);
    }

    void aStalledServerIsGivenUp()
    {
        m_source.longestSilence = 300ms;
        answer("yt-dlp", {.body = QByteArray(5000, 'x'), .told = 9000, .isHeld = true});
        checkRefused(u"yt-dlp could not be downloaded: nothing came for 1 seconds."_s);
    }

    void aConnectionThatBreaksIsAnError()
    {
        answer("yt-dlp", {.body = QByteArray(5000, 'x'), .told = 9000});
        checkRefused(u"yt-dlp could not be downloaded: Connection closed."_s);
    }

    void anAnnouncedOversizeBodyIsNotRead()
    {
        answer("yt-dlp", {.body = "x", .told = 20'000'001, .isHeld = true});
        checkRefused(u"yt-dlp could not be downloaded: what came is too large to be yt-dlp."_s);
    }

    void aBodyThatNeverEndsIsCutOff()
    {
        answer("yt-dlp", {.isEndless = true});
        checkRefused(u"yt-dlp could not be downloaded: what came is too large to be yt-dlp."_s);
    }

    void aRefusalThatNeverEndsIsNotRead()
    {
        answer("yt-dlp", {.status = 404, .isEndless = true});
        checkRefused(u"yt-dlp could not be downloaded: the server answered 404."_s);
    }

    void sumsOfAHundredMegabytesAreNotRead()
    {
        answer("SHA2-256SUMS", {.body = QByteArray(100'000'000, 'x')});
        checkRefused(u"yt-dlp could not be downloaded: what came is too large to be yt-dlp."_s);
    }
};

QTEST_GUILESS_MAIN(UpdateDownloadTest)
#include "UpdateDownloadTest.moc"
