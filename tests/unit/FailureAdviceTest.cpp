// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureAdvice.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Remedy = FailureAdvice::Remedy;

/// What the user can do about messages of the tool.
class FailureAdviceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownMessagesHaveARemedy_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<Remedy>("remedy");
        const auto row = [](const char *name, const QString &message, Remedy remedy) {
            QTest::newRow(name) << message << remedy;
        };
        row("bot", u"ERROR: [youtube] a: Sign in to confirm you’re not a bot. Use …"_s,
            Remedy::chooseCookies);
        row("age", u"ERROR: [youtube] a: Sign in to confirm your age. This video may …"_s,
            Remedy::chooseCookies);
        row("private",
            u"ERROR: [youtube] a: Private video. Sign in if you've been granted access to this video"_s,
            Remedy::chooseCookies);
        row("login",
            u"ERROR: [x] a: This video is only available for registered users. Use --cookies, …"_s,
            Remedy::chooseCookies);
        row("no cookies", u"could not find firefox cookies database in '/home/u/.mozilla'"_s,
            Remedy::chooseCookies);
        row("locked", u"ERROR: database is locked"_s, Remedy::chooseCookies);
        row("disk", u"ERROR: unable to write data: [Errno 28] No space left on device"_s,
            Remedy::openSettings);
        row("folder", u"ERROR: unable to open for writing: [Errno 13] Permission denied: 'a'"_s,
            Remedy::openSettings);
        row("read-only", u"ERROR: unable to create directory [Errno 30] Read-only file system"_s,
            Remedy::openSettings);
        row("429", u"ERROR: Unable to download webpage: HTTP Error 429: Too Many Requests"_s,
            Remedy::tryAgainLater);
        row("ffmpeg",
            u"ERROR: You have requested merging of multiple formats but ffmpeg is not installed. Aborting"_s,
            Remedy::runCommand);
        row("ffprobe", u"ERROR: Postprocessing: ffprobe and ffmpeg not found. Please install"_s,
            Remedy::runCommand);
        row("offline",
            u"ERROR: Unable to download API page: <urlopen error [Errno -3] Temporary failure in name resolution>"_s,
            Remedy::tryAgain);
    }
    void knownMessagesHaveARemedy()
    {
        QFETCH(QString, message);
        QFETCH(Remedy, remedy);
        const auto advice = adviceFor(u"Download failed: "_s + message, u"firefox"_s);
        QVERIFY(advice);
        QCOMPARE(advice->remedy, remedy);
        QVERIFY(!advice->sentence.isEmpty() && !advice->sentence.contains(u'%'));
        QCOMPARE(advice->command.isEmpty(), remedy != Remedy::runCommand);
    }

    void otherMessagesHaveNone_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("nothing") << QString();
        QTest::newRow("removed") << u"ERROR: [youtube] a: Video unavailable"_s;
        QTest::newRow("exit code") << u"Download failed: Exit code 15"_s;
    }
    void otherMessagesHaveNone()
    {
        QFETCH(QString, message);
        QVERIFY(!adviceFor(message, u"none"_s));
    }

    void theBrowserIsNamed()
    {
        const auto advice = adviceFor(u"failed to decrypt cookie (AES-CBC)"_s, u"chrome"_s);
        QVERIFY(
            advice->sentence.startsWith(u"The cookies of Chrome cannot be read. Close Chrome"_s));
    }
};

QTEST_GUILESS_MAIN(FailureAdviceTest)
#include "FailureAdviceTest.moc"
