// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaPlayer.h"
#include "StandIns.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class MediaPlayerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desktop = std::make_unique<RecordingDesktop>();
        m_player = std::make_unique<MediaPlayer>(m_desktop->services().playerEngine);
    }
    void cleanup() { m_player.reset(); }

    void theEngineIsMadeWithTheFirstItem()
    {
        m_player->pause();
        m_player->setVolume(0.5);
        m_player->setMuted(true);
        m_player->setWish(this, {.size = {640, 360}});
        m_player->replaceCurrentItem({});
        QVERIFY(!engine());
        m_player->replaceCurrentItem(MediaItem{m_url});
        QCOMPARE(engine()->urls, QList{m_url});
        QVERIFY(engine()->isPaused && engine()->isMuted);
        QCOMPARE(engine()->volume, 0.5);
        QCOMPARE(engine()->wish.size, QSize(640, 360));
        m_player->play();
        QVERIFY(!engine()->isPaused);
    }

    void theLargestWishCounts()
    {
        const QObject other;
        m_player->setWish(this, {.size = {640, 360}});
        m_player->setWish(&other, {.size = {1920, 1080}, .isForGraphicsCard = true});
        m_player->replaceCurrentItem(MediaItem{m_url});
        QCOMPARE(engine()->wish, (PictureWish{{1920, 1080}, true}));
        m_player->setWish(this, {.size = {800, 450}});
        QCOMPARE(engine()->wish.size, QSize(1920, 1080));
        m_player->setWish(&other, {});
        QCOMPARE(engine()->wish, (PictureWish{{800, 450}, false}));
        m_player->setWish(this, {});
        QVERIFY(engine()->wish.size.isEmpty());
    }

    void onlyTheWebIsOpened_data()
    {
        QTest::addColumn<QString>("url");
        for (const char *const url : {"file:///etc/passwd", "/etc/passwd", "ftp://x/a", "word"})
            QTest::newRow(url) << QString::fromLatin1(url);
    }
    void onlyTheWebIsOpened()
    {
        QFETCH(QString, url);
        const QSignalSpy spy(m_player.get(), &MediaPlayer::failed);
        m_player->replaceCurrentItem(MediaItem{QUrl(url)});
        QCOMPARE(spy.count(), 0); // not from inside of the call
        QVERIFY(QTest::qWaitFor([&] { return spy.count() == 1; }, 30000));
        QVERIFY(!engine());
        QVERIFY(!m_player->hasItem());
    }

    void withoutAnEngineTheReasonIsSaid()
    {
        *m_desktop->engineError = u"none here"_s;
        const QSignalSpy spy(m_player.get(), &MediaPlayer::failed);
        m_player->replaceCurrentItem(MediaItem{m_url});
        QVERIFY(QTest::qWaitFor([&] { return spy.count() == 1; }, 30000));
        QCOMPARE(spy.first().first().toString(), u"none here"_s);
    }

    void aReplacedItemCannotFailTheNext()
    {
        const QSignalSpy spy(m_player.get(), &MediaPlayer::failed);
        m_player->replaceCurrentItem(MediaItem{QUrl(u"file:///a"_s)});
        m_player->replaceCurrentItem(MediaItem{m_url});
        QCoreApplication::processEvents();
        QCOMPARE(spy.count(), 0);
        QVERIFY(m_player->hasItem());
    }

    void whatTheEngineTellsIsSeen()
    {
        m_player->replaceCurrentItem(MediaItem{m_url});
        engine()->events.statusChanged({.position = 3, .duration = 10, .loadedTo = 5});
        QCOMPARE(m_player->position(), 3.0);
        QCOMPARE(m_player->duration(), 10.0);
        QCOMPARE(m_player->loadedTo(), 5.0);
        engine()->events.pictureChanged(QImage(4, 4, QImage::Format_RGB32), {16, 9});
        QVERIFY(!m_player->picture().isNull());
        m_player->replaceCurrentItem({});
        QCOMPARE(engine()->unloads, 1);
        QCOMPARE(m_player->position(), 0.0);
        QVERIFY(m_player->picture().isNull());
        const QSignalSpy spy(m_player.get(), &MediaPlayer::playedToEnd);
        engine()->events.ended(); // too late
        QCOMPARE(spy.count(), 0);
    }

    void seekingStaysWithinTheItem()
    {
        m_player->seek(5); // nothing there
        m_player->replaceCurrentItem(MediaItem{m_url});
        engine()->events.statusChanged({.position = 3, .duration = 10});
        m_player->seek(-2);
        m_player->seek(99);
        QCOMPARE(engine()->sought, QList({0.0, 10.0}));
        QCOMPARE(m_player->position(), 10.0);
    }

    void playingAfterTheEndStartsOver()
    {
        const QSignalSpy spy(m_player.get(), &MediaPlayer::playedToEnd);
        m_player->replaceCurrentItem(MediaItem{m_url});
        m_player->play();
        engine()->events.ended();
        QCOMPARE(spy.count(), 1);
        QVERIFY(m_player->hasItem() && m_player->hasEnded() && m_player->isPaused());
        QVERIFY(engine()->isPaused);
        m_player->togglePause();
        QCOMPARE(engine()->sought, QList<double>{0});
        QVERIFY(!m_player->hasEnded() && !engine()->isPaused);
        m_player->togglePause();
        m_player->togglePause(); // goes on where it was
        QCOMPARE(engine()->sought.size(), 1);
    }

    void itWaitsUntilTheEngineReports()
    {
        QVERIFY(!m_player->isBuffering());
        m_player->replaceCurrentItem(MediaItem{m_url});
        QVERIFY(m_player->isBuffering());
        engine()->events.statusChanged({.duration = 6});
        QVERIFY(!m_player->isBuffering());
        m_player->replaceCurrentItem({});
        QVERIFY(!m_player->isBuffering());
    }

    void seekingAfterTheEndDoesNotStartOver()
    {
        m_player->replaceCurrentItem(MediaItem{m_url});
        engine()->events.ended();
        m_player->seek(5);
        m_player->resume();
        QCOMPARE(engine()->sought, QList<double>{5});
        engine()->events.ended();
        m_player->replaceCurrentItem(MediaItem{m_url});
        QVERIFY(!m_player->hasEnded());
        m_player->resume();
        QCOMPARE(engine()->sought.size(), 1);
    }

    void seekingBeyondTheEndStillAllowsReplay()
    {
        m_player->replaceCurrentItem(MediaItem{m_url});
        engine()->events.statusChanged({.position = 10, .duration = 10});
        engine()->events.ended();
        m_player->seek(15);
        QVERIFY(m_player->hasEnded());
        m_player->togglePause();
        QCOMPARE(engine()->sought.last(), 0.0);
        QVERIFY(!engine()->isPaused);
    }

    void anItemThatBreaksIsGone()
    {
        const QSignalSpy spy(m_player.get(), &MediaPlayer::failed);
        m_player->replaceCurrentItem(MediaItem{m_url});
        engine()->events.failed(u"gone"_s);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!m_player->hasItem());
    }

private:
    RecordingDesktop::SilentEngine *engine() { return *m_desktop->engine; }

    const QUrl m_url{u"http://x/a.mp4"_s};
    std::unique_ptr<RecordingDesktop> m_desktop;
    std::unique_ptr<MediaPlayer> m_player;
};

QTEST_MAIN(MediaPlayerTest)
#include "MediaPlayerTest.moc"
