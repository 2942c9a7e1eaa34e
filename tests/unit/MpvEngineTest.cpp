// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvFixture.h"

/// Playing, seeking and failing with the real engine.
class MpvEngineTest : public MpvFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aStreamPlaysToItsEndWithChangingPictures()
    {
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
        QVERIFY(m_pictures.size() > 10);
        QCOMPARE(m_pictures.last().size(), QSize(321, 181));
        QCOMPARE(m_proportions, QSize(320, 180));
        QVERIFY(m_pictures.first() != m_pictures.last());
        QVERIFY(!isBlack(m_pictures[m_pictures.size() / 2]));
        QCOMPARE(qAlpha(m_pictures.last().pixel(100, 100)), 255);
        QVERIFY(m_status.duration > 2.8 && m_status.duration < 3.3);
        QVERIFY(m_status.position > 2.8);
        QVERIFY(m_status.loadedTo >= 2);
    }

    void aGraphicsCardEnlargesForItself()
    {
        m_engine->setWish({.size = {3840, 2160}, .isForGraphicsCard = true});
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QCOMPARE(m_pictures.last().size(), QSize(320, 180));
        QCOMPARE(m_proportions, QSize(320, 180));
        const QImage fromCard = m_pictures.last();
        m_engine->setWish({.size = {320, 180}});
        QTRY_COMPARE_WITH_TIMEOUT(m_pictures.last().format(), QImage::Format_RGB32, patience);
        QVERIFY(areSimilar(m_pictures.last(), fromCard));
    }

    void nothingIsDrawnWhileNobodyLooks()
    {
        m_engine->setWish({});
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_pictures.isEmpty());
        m_engine->setWish({.size = {160, 90}}); // and at once when somebody does
        QTRY_VERIFY_WITH_TIMEOUT(!m_pictures.isEmpty() && !isBlack(m_pictures.last()), patience);
    }

    void fewPicturesNeedMemory()
    {
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_pictures.size() > 10);
        QVERIFY2(m_memory.size() <= 4, qPrintable(QString::number(m_memory.size())));
    }

    void aDecoderThatDoesNotWorkIsReplaced()
    {
        make({{"hwdec", "vaapi-copy,vulkan-copy,nvdec-copy"}});
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
        QVERIFY(!isBlack(m_pictures.last()));
    }

    void picturesOfAbsurdSizeAreNotDecoded()
    {
        load("huge.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_ends == 1 || !m_failures.isEmpty(), patience);
        // Newer engines show an empty picture in place of one that they do not decode.
        for (const QImage &each : std::as_const(m_pictures))
            QVERIFY(isBlack(each));
    }

    void anAbsurdSizeInMidStreamIsNotDecoded()
    {
        load("growing.ts");
        QTRY_VERIFY_WITH_TIMEOUT(m_ends == 1 || !m_failures.isEmpty(), patience);
        QVERIFY(!m_pictures.isEmpty() && !isBlack(m_pictures.first()));
        for (const QImage &each : std::as_const(m_pictures)) {
            const QColor middle = each.pixelColor(each.rect().center());
            QVERIFY(middle.red() < 200 || middle.green() > 60 || middle.blue() > 60);
        }
    }

    void aNewStreamReportsNoStaleNumbers()
    {
        load("long.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_status.duration > 7, patience);
        m_engine->seek(6);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position >= 6 && !m_status.isBuffering, patience);
        m_statuses.clear();
        load("clip.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(
            m_status.duration > 0 && m_status.duration < 4 && !m_status.isBuffering, patience);
        for (const PlayerStatus &each : std::as_const(m_statuses)) {
            QVERIFY(each.duration < 4);
            QVERIFY(each.position < 2);
        }
    }

    void anEndedStreamCanBePlayedAgain()
    {
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        m_engine->seek(1.5);
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 2, patience);
    }

    void pausedAtTheEndItEndsOnResume()
    {
        load("clip.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 0.3, patience);
        m_engine->setPaused(true);
        m_engine->seek(m_status.duration);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 2.5 && !m_status.isBuffering, patience);
        QCOMPARE(m_ends, 0);
        m_engine->setPaused(false);
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
    }

    void seekingBackFromTheEndPlaysOn()
    {
        load("clip.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 0.3, patience);
        m_engine->setPaused(true);
        m_engine->seek(m_status.duration);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 2.5 && !m_status.isBuffering, patience);
        m_engine->seek(0.5);
        m_engine->setPaused(false);
        QTRY_VERIFY_WITH_TIMEOUT(m_ends > 0 || (m_status.position > 1 && m_status.position < 2.5),
                                 patience);
        QCOMPARE(m_ends, 0);
    }

    void seekingWhilePausedShowsThePicture()
    {
        m_engine->setPaused(true);
        load("clip.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(!m_pictures.isEmpty() && !isBlack(m_pictures.last()), patience);
        const QImage first = m_pictures.last();
        m_engine->seek(2);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 1.8 && m_pictures.last() != first, patience);
        QCOMPARE(m_ends, 0);
        m_pictures.clear();
        m_engine->setWish({.size = {160, 90}});
        QTRY_VERIFY_WITH_TIMEOUT(
            !m_pictures.isEmpty() && m_pictures.last().size() == QSize(160, 90), patience);
        QVERIFY(!isBlack(m_pictures.last()));
    }

    void aSeekBeforeTheStartIsKept()
    {
        m_engine->setPaused(true);
        load("clip.mp4");
        m_engine->seek(2);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 1.8, patience);
    }

    void anUnplayableStreamFailsOnceWithAReason_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("reason");
        QTest::newRow("404") << "missing"_ba << u"http: HTTP error 404 Not Found"_s;
        QTest::newRow("a text file") << "text"_ba << u"unrecognized file format"_s;
        QTest::newRow("an empty file") << "empty"_ba << u"unrecognized file format"_s;
        QTest::newRow("ends in the middle") << "half.mp4"_ba << u"the connection was lost"_s;
        QTest::newRow("a short one ends in the middle")
            << "short.mp4"_ba << u"the connection was lost"_s;
        QTest::newRow("a list of others") << "list.m3u"_ba << u"it is a list of other URLs"_s;
        QTest::newRow("redirects to a file") << "to-a-file"_ba << u"loading failed"_s;
    }
    void anUnplayableStreamFailsOnceWithAReason()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, reason);
        load(path);
        QTRY_VERIFY_WITH_TIMEOUT(!m_failures.isEmpty(), patience);
        QCOMPARE(m_failures.first(), u"The stream cannot be played: "_s + reason);
        QCOMPARE(m_ends, 0);
        load("clip.mp4"); // it is fit for the next one, and says no more of this one
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QCOMPARE(m_failures.size(), 1);
    }

    void aURLThatRunsOutInTheMiddleHasExpired()
    {
        load("expiring.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(!m_expiries.isEmpty() || !m_failures.isEmpty(), patience);
        QCOMPARE(m_expiries.size(), 1);
        QVERIFY(m_failures.isEmpty());
        QCOMPARE(m_ends, 0);
        load("expiring.mp4"); // refused from the start
        QTRY_COMPARE_WITH_TIMEOUT(m_failures.size(), 1, patience);
        QCOMPARE(m_failures.first(),
                 u"The stream cannot be played: http: HTTP error 403 Forbidden"_s);
        QCOMPARE(m_expiries.size(), 1);
    }

    void aStreamCanBeginInTheMiddle()
    {
        load("long.mp4", 6);
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        for (const PlayerStatus &each : std::as_const(m_statuses))
            QVERIFY(each.isBuffering || each.position >= 5.9);
        load("clip.mp4"); // the next one begins where it begins
        QTRY_VERIFY_WITH_TIMEOUT(m_status.duration < 4 && !m_status.isBuffering, patience);
        QVERIFY(m_status.position < 2);
    }

    void aStallIsToldAndEnds()
    {
        load("stalling.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 0.3 && !m_status.isBuffering, patience);
        QTRY_VERIFY_WITH_TIMEOUT(m_status.isBuffering, patience);
        QVERIFY(m_status.position > 1);
        QVERIFY(m_stalled);
        m_stalled->write(m_longClip.mid(m_longClip.size() / 2));
        m_stalled->disconnectFromHost();
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
    }

    void aServerThatRefusesFails()
    {
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost));
        const quint16 port = closed.serverPort();
        closed.close();
        m_engine->load(QUrl(u"http://127.0.0.1:%1/a.mp4"_s.arg(port)), 0);
        QTRY_COMPARE_WITH_TIMEOUT(m_failures.size(), 1, patience);
    }

    void aServerThatHangsHoldsNothingUp()
    {
        load("hang");
        QTRY_VERIFY_WITH_TIMEOUT(m_requests.contains("/hang"), patience);
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
        load("hang");
        QTRY_COMPARE_WITH_TIMEOUT(m_requests.count("/hang"), 2, patience);
        QElapsedTimer timer;
        timer.start();
        m_engine.reset();
        QVERIFY(timer.elapsed() < 5000); // it would give the server 15 seconds
    }

    void aServerThatHangsIsGivenUp()
    {
        make({{"network-timeout", "1"}});
        load("hang");
        QTRY_COMPARE_WITH_TIMEOUT(m_failures.size(), 1, patience);
        QCOMPARE(m_ends, 0);
    }

    void loadingTwiceAtOncePlaysTheSecond()
    {
        load("missing");
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
    }

    void unloadedItTellsNothing()
    {
        load("clip.mp4");
        QTRY_VERIFY_WITH_TIMEOUT(m_status.position > 0.3, patience);
        m_engine->unload();
        m_pictures.clear();
        m_status = {};
        load("missing"); // until this has failed nothing else is told
        QTRY_COMPARE_WITH_TIMEOUT(m_failures.size(), 1, patience);
        QCOMPARE(m_pictures.size(), 0);
        QCOMPARE(m_status.position, 0.0);
        QCOMPARE(m_ends, 0);
    }
};

QTEST_MAIN(MpvEngineTest)
#include "MpvEngineTest.moc"
