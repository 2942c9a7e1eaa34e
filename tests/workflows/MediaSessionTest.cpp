// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplicationId.h"
#include "MediaSessionFixture.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSignalSpy>

namespace {

const QString mprisName = u"org.mpris.MediaPlayer2.quillon"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;

} // namespace

/// The desktop's media control.
class MediaSessionTest : public MediaSessionFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.connect(QString(), u"/org/mpris/MediaPlayer2"_s,
                                  u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                                  this, SLOT(takeChanges(QString, QVariantMap, QStringList))));
        QVERIFY(m_desktop.connect(QString(), u"/org/mpris/MediaPlayer2"_s, playerInterface,
                                  u"Seeked"_s, this, SLOT(takeSeeked(qlonglong))));
    }
    void init()
    {
        MediaSessionFixture::init();
        m_changes.clear();
        m_seeked.clear();
    }

    void itIsOnTheBusWhileAVideoIsChosen()
    {
        QVERIFY(!isOnTheBus());
        QVERIFY(play(u"b"_s));
        QVERIFY(isOnTheBus());
        state().stopPlayback();
        QVERIFY(!isOnTheBus());
        QVERIFY(play(u"a"_s));
        QVERIFY(isOnTheBus());
    }

    void theProgramIsNamed()
    {
        QVERIFY(play(u"a"_s));
        const auto read = [this](const QString &name) {
            return property(u"org.mpris.MediaPlayer2"_s, name);
        };
        QCOMPARE(read(u"Identity"_s), u"Quillon"_s);
        QCOMPARE(read(u"DesktopEntry"_s), applicationId);
        QCOMPARE(read(u"CanRaise"_s), true);
        QCOMPARE(read(u"CanQuit"_s), false);
        const QSignalSpy spy(m_control.get(), &MediaControl::raiseRequested);
        call(u"org.mpris.MediaPlayer2"_s, u"Raise"_s);
        QCOMPARE(spy.count(), 1);
    }

    void titleArtistArtAndLengthAreTold()
    {
        QVERIFY(play(u"b"_s));
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        QCOMPARE(metadata[u"xesam:title"_s], u"Title b"_s);
        QCOMPARE(metadata[u"xesam:artist"_s].toStringList(), QStringList{u"Someone"_s});
        QCOMPARE(metadata[u"mpris:artUrl"_s], u"http://127.0.0.1/b.jpg"_s);
        QCOMPARE(metadata[u"xesam:url"_s], u"https://example.org/b"_s);
        QCOMPARE(metadata[u"mpris:length"_s].toLongLong(), 90'000'000);
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Playing"_s);
        QCOMPARE(playerProperty(u"CanGoNext"_s), true);
        QCOMPARE(playerProperty(u"CanGoPrevious"_s), true);
        QCOMPARE(playerProperty(u"CanSeek"_s), true);
    }

    void titlesAreToldWithoutOverridesOfDirection()
    {
        SearchResult hostile = result(u"b"_s);
        hostile.title = u"song\u202E3pm.exe"_s;
        hostile.uploader = u"Some\nbody"_s;
        state().playBrowseResult(hostile);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        QCOMPARE(metadata[u"xesam:title"_s], u"song3pm.exe"_s);
        QCOMPARE(metadata[u"xesam:artist"_s].toStringList(), QStringList{u"Some body"_s});
    }

    void whatIsUnknownIsLeftOut()
    {
        SearchResult bare;
        bare.id = u"-_x"_s;
        bare.videoURL = u"https://example.org/x"_s;
        state().playBrowseResult(bare);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        QCOMPARE(metadata.keys(),
                 QStringList({u"mpris:trackid"_s, u"xesam:title"_s, u"xesam:url"_s}));
        QCOMPARE(playerProperty(u"CanSeek"_s), false);
        QCOMPARE(playerProperty(u"CanGoNext"_s), false); // it is not among the results
    }

    void onlyURLsOfTheWebArePassedOn()
    {
        SearchResult odd;
        odd.id = u"x"_s;
        odd.videoURL = u"ftp://example.org/x"_s;
        odd.thumbnailURL = u"file:///dev/zero"_s;
        state().playBrowseResult(odd);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        QCOMPARE(metadata.keys(), QStringList({u"mpris:trackid"_s, u"xesam:title"_s}));
    }

    void aVolumeThatIsNoNumberIsIgnored()
    {
        QVERIFY(play(u"a"_s));
        const double before = state().avPlayer.volume();
        for (const double odd : {qQNaN(), qInf()})
            call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
                 {playerInterface, u"Volume"_s, QVariant::fromValue(QDBusVariant(odd))});
        QCOMPARE(state().avPlayer.volume(), before);
    }

    void changesAreSignalledButNotThePosition()
    {
        QVERIFY(play(u"a"_s));
        playerProperty(u"PlaybackStatus"_s);
        m_changes.clear();
        reportPosition(3.5);
        QCOMPARE(playerProperty(u"Position"_s).toLongLong(), 3'500'000);
        QVERIFY(m_changes.isEmpty());
        state().avPlayer.pause();
        QTRY_COMPARE_WITH_TIMEOUT(m_changes.size(), 1, patience);
        QCOMPARE(m_changes.first(), QVariantMap({{u"PlaybackStatus"_s, u"Paused"_s}}));
        state().avPlayer.setVolume(0.25);
        QTRY_COMPARE_WITH_TIMEOUT(m_changes.size(), 2, patience);
        QCOMPARE(m_changes.last(), QVariantMap({{u"Volume"_s, 0.25}}));
    }

    void playPauseAndVolumeAreObeyed()
    {
        QVERIFY(play(u"a"_s));
        callPlayer(u"Pause"_s);
        QVERIFY(engine()->isPaused);
        callPlayer(u"Pause"_s);
        QVERIFY(engine()->isPaused);
        callPlayer(u"Play"_s);
        QVERIFY(!engine()->isPaused);
        callPlayer(u"PlayPause"_s);
        QVERIFY(engine()->isPaused);
        call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
             {playerInterface, u"Volume"_s, QVariant::fromValue(QDBusVariant(0.5))});
        QCOMPARE(engine()->volume, 0.5);
    }

    void nextAndPreviousChooseLikeThePanel()
    {
        QVERIFY(play(u"b"_s));
        callPlayer(u"Next"_s);
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        QCOMPARE(playerProperty(u"CanGoNext"_s), false);
        callPlayer(u"Next"_s);
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        callPlayer(u"Previous"_s);
        callPlayer(u"Previous"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        callPlayer(u"Previous"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
    }

    void stopStops()
    {
        QVERIFY(play(u"a"_s));
        callPlayer(u"Stop"_s);
        QVERIFY(!state().nowPlaying());
        QVERIFY(!isOnTheBus());
    }

    void seekingIsRelativeOrForThePlayingTrack()
    {
        QVERIFY(play(u"a"_s));
        reportPosition(20);
        callPlayer(u"Seek"_s, {5'000'000LL});
        QCOMPARE(engine()->sought, QList<double>{25});
        callPlayer(u"Seek"_s, {-60'000'000LL});
        QCOMPARE(engine()->sought, QList<double>({25, 0}));
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        const QVariant track = metadata[u"mpris:trackid"_s];
        callPlayer(u"SetPosition"_s, {track, 42'000'000LL});
        QCOMPARE(engine()->sought.last(), 42);
        QTRY_COMPARE_WITH_TIMEOUT(m_seeked, QList<qlonglong>({25'000'000, 0, 42'000'000}),
                                  patience);
        const QVariant other = QVariant::fromValue(QDBusObjectPath(u"/quillon/track/id00"_s));
        callPlayer(u"SetPosition"_s, {other, 1'000'000LL});
        callPlayer(u"SetPosition"_s, {track, 900'000'000LL});
        QCOMPARE(engine()->sought.size(), 3);
        callPlayer(u"Seek"_s, {900'000'000LL}); // behind the end is the next one
        QCOMPARE(state().nowPlaying()->id, u"b"_s);
    }

    void afterTheLastOnePlayBeginsAgain()
    {
        QVERIFY(play(u"c"_s));
        engine()->events.ended();
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Paused"_s);
        callPlayer(u"Play"_s);
        QCOMPARE(engine()->sought, QList<double>{0});
    }

    void loadingAndFailedCountAsStopped()
    {
        m_fixture->tool.respond("");
        state().playBrowseResult(result(u"a"_s));
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Stopped"_s);
        QCOMPARE(playerProperty(u"CanPlay"_s), false);
        QTRY_VERIFY_WITH_TIMEOUT(state().playerError().has_value(), patience);
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Stopped"_s);
    }

    void anotherOwnerOfTheNameIsRespected()
    {
        QVERIFY(m_desktop.registerService(mprisName));
        QVERIFY(play(u"a"_s));
        const QString own = mprisName + u".instance%1"_s.arg(QCoreApplication::applicationPid());
        QVERIFY(isOnTheBus(own));
        state().stopPlayback();
        QVERIFY(!isOnTheBus(own));
        QVERIFY(isOnTheBus());
        QVERIFY(m_desktop.unregisterService(mprisName));
    }

public Q_SLOTS:
    void takeChanges(const QString &interface, const QVariantMap &changes,
                     const QStringList & /*invalidated*/)
    {
        QCOMPARE(interface, playerInterface);
        m_changes.append(changes);
    }
    void takeSeeked(qlonglong position) { m_seeked.append(position); }

private:
    [[nodiscard]] bool isOnTheBus(const QString &name = mprisName) const
    {
        return m_desktop.interface()->isServiceRegistered(name);
    }

    /// Over the bus and back, while this program answers.
    QVariant call(const QString &interface, const QString &method, const QVariantList &words = {})
    {
        auto message = QDBusMessage::createMethodCall(mprisName, u"/org/mpris/MediaPlayer2"_s,
                                                      interface, method);
        message.setArguments(words);
        QDBusPendingCallWatcher watcher(m_desktop.asyncCall(message));
        QSignalSpy spy(&watcher, &QDBusPendingCallWatcher::finished);
        if (!watcher.isFinished())
            spy.wait();
        const QDBusMessage reply = watcher.reply();
        if (reply.type() != QDBusMessage::ReplyMessage)
            qWarning("%s", qPrintable(reply.errorMessage()));
        return reply.arguments().value(0);
    }
    void callPlayer(const QString &method, const QVariantList &words = {})
    {
        call(playerInterface, method, words);
    }
    QVariant property(const QString &interface, const QString &name)
    {
        return call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name})
            .value<QDBusVariant>()
            .variant();
    }
    QVariant playerProperty(const QString &name) { return property(playerInterface, name); }

    QList<QVariantMap> m_changes;
    QList<qlonglong> m_seeked;
};

QTEST_GUILESS_MAIN(MediaSessionTest)
#include "MediaSessionTest.moc"
