// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaSession.h"
#include "StateFixture.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString mprisName = u"org.mpris.MediaPlayer2.quillon"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;

/// What answers for the desktop's screen saver.
class ScreenSaver : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public Q_SLOTS:
    uint Inhibit(const QString &program, const QString &reason)
    {
        said = program + u": "_s + reason;
        held.append(++last);
        return last;
    }
    void UnInhibit(uint cookie) { held.removeOne(cookie); }
    void Settle() const { } // comes after all that was sent before

public:
    QString said;
    QList<uint> held;
    uint last = 40;
};

} // namespace

/// The desktop's media control and its screen saver on a bus of the test's own,
/// asked over a connection of their own.
class MediaSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_desktop.isConnected(), "this test needs a session bus: use dbus-run-session");
        QVERIFY(m_desktop.registerObject(u"/org/freedesktop/ScreenSaver"_s, &m_screenSaver,
                                         QDBusConnection::ExportAllSlots));
        QVERIFY(m_desktop.connect(QString(), u"/org/mpris/MediaPlayer2"_s,
                                  u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                                  this, SLOT(takeChanges(QString, QVariantMap, QStringList))));
        QVERIFY(m_desktop.connect(QString(), u"/org/mpris/MediaPlayer2"_s, playerInterface,
                                  u"Seeked"_s, this, SLOT(takeSeeked(qlonglong))));
    }
    void init()
    {
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        m_fixture = std::make_unique<StateFixture>();
        m_control = std::make_unique<MediaControl>();
        m_inhibitor = std::make_unique<SleepInhibitor>();
        m_session = std::make_unique<MediaSession>(state(), *m_control, *m_inhibitor);
        state().browseResults = AppState::Results{result(u"a"_s), result(u"b"_s), result(u"c"_s)};
        m_fixture->tool.setScript("for LAST; do :; done\necho \"http://media/${LAST##*/}.mp4\"");
        m_changes.clear();
        m_seeked.clear();
    }
    void cleanup()
    {
        state().stopPlayback();
        settle();
        WAIT_FOR(m_screenSaver.held.isEmpty());
        m_session.reset();
        m_inhibitor.reset();
        m_control.reset();
        m_fixture.reset();
    }

    void itIsOnTheBusWhileSomethingIsChosen()
    {
        QVERIFY(!isOnTheBus());
        play(u"b"_s);
        QVERIFY(isOnTheBus());
        state().stopPlayback();
        QVERIFY(!isOnTheBus());
        play(u"a"_s);
        QVERIFY(isOnTheBus());
    }

    void theProgramIsNamed()
    {
        play(u"a"_s);
        const auto read = [this](const QString &name) {
            return property(u"org.mpris.MediaPlayer2"_s, name);
        };
        QCOMPARE(read(u"Identity"_s), u"Quillon"_s);
        QCOMPARE(read(u"DesktopEntry"_s), u"quillon"_s);
        QCOMPARE(read(u"CanRaise"_s), true);
        QCOMPARE(read(u"CanQuit"_s), false);
        const QSignalSpy spy(m_control.get(), &MediaControl::raiseRequested);
        call(u"org.mpris.MediaPlayer2"_s, u"Raise"_s);
        QCOMPARE(spy.count(), 1);
    }

    void titleArtistArtAndLengthAreTold()
    {
        play(u"b"_s);
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

    void whatIsUnknownIsLeftOut()
    {
        SearchResult bare;
        bare.id = u"-_x"_s;
        bare.videoURL = u"https://example.org/x"_s;
        state().playBrowseResult(bare);
        WAIT_FOR(!state().isLoadingStream());
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        QCOMPARE(metadata.keys(),
                 QStringList({u"mpris:trackid"_s, u"xesam:title"_s, u"xesam:url"_s}));
        QCOMPARE(playerProperty(u"CanSeek"_s), false);
        QCOMPARE(playerProperty(u"CanGoNext"_s), false); // it is not among the results
    }

    void changesAreToldAndThePositionIsAskedFor()
    {
        play(u"a"_s);
        playerProperty(u"PlaybackStatus"_s);
        m_changes.clear();
        tellPosition(3.5);
        QCOMPARE(playerProperty(u"Position"_s).toLongLong(), 3'500'000);
        QVERIFY(m_changes.isEmpty());
        state().avPlayer.pause();
        WAIT_FOR(m_changes.size() == 1);
        QCOMPARE(m_changes.first(), QVariantMap({{u"PlaybackStatus"_s, u"Paused"_s}}));
        state().avPlayer.setVolume(0.25);
        WAIT_FOR(m_changes.size() == 2);
        QCOMPARE(m_changes.last(), QVariantMap({{u"Volume"_s, 0.25}}));
    }

    void playPauseAndVolumeAreObeyed()
    {
        play(u"a"_s);
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
        play(u"b"_s);
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
        play(u"a"_s);
        callPlayer(u"Stop"_s);
        QVERIFY(!state().nowPlaying());
        QVERIFY(!isOnTheBus());
    }

    void seekingIsRelativeOrForTheTrackThatPlays()
    {
        play(u"a"_s);
        tellPosition(20);
        callPlayer(u"Seek"_s, {5'000'000LL});
        QCOMPARE(engine()->sought, QList<double>{25});
        callPlayer(u"Seek"_s, {-60'000'000LL});
        QCOMPARE(engine()->sought, QList<double>({25, 0}));
        const auto metadata = qdbus_cast<QVariantMap>(playerProperty(u"Metadata"_s));
        const QVariant track = metadata[u"mpris:trackid"_s];
        callPlayer(u"SetPosition"_s, {track, 42'000'000LL});
        QCOMPARE(engine()->sought.last(), 42);
        WAIT_FOR(m_seeked == QList<qlonglong>({25'000'000, 0, 42'000'000}));
        const QVariant other = QVariant::fromValue(QDBusObjectPath(u"/quillon/track/id00"_s));
        callPlayer(u"SetPosition"_s, {other, 1'000'000LL});
        callPlayer(u"SetPosition"_s, {track, 900'000'000LL});
        QCOMPARE(engine()->sought.size(), 3);
        callPlayer(u"Seek"_s, {900'000'000LL}); // behind the end is the next one
        QCOMPARE(state().nowPlaying()->id, u"b"_s);
    }

    void whileItLoadsAndAfterAFailureItIsStopped()
    {
        m_fixture->tool.setScript("true");
        state().playBrowseResult(result(u"a"_s));
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Stopped"_s);
        QCOMPARE(playerProperty(u"CanPlay"_s), false);
        WAIT_FOR(state().playerError().has_value());
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Stopped"_s);
    }

    void anotherProgramWithTheNameIsLeftInPeace()
    {
        QVERIFY(m_desktop.registerService(mprisName));
        play(u"a"_s);
        const QString own = mprisName + u".instance%1"_s.arg(QCoreApplication::applicationPid());
        QVERIFY(isOnTheBus(own));
        state().stopPlayback();
        QVERIFY(!isOnTheBus(own));
        QVERIFY(isOnTheBus());
        QVERIFY(m_desktop.unregisterService(mprisName));
    }

    void theScreenIsAwakeWhileAVideoPlays()
    {
        QVERIFY(m_screenSaver.held.isEmpty());
        play(u"a"_s);
        WAIT_FOR(m_screenSaver.held.size() == 1);
        QCOMPARE(m_screenSaver.said, u"quillon: Playing a video"_s);
        state().avPlayer.pause();
        WAIT_FOR(m_screenSaver.held.isEmpty());
        state().avPlayer.play();
        WAIT_FOR(m_screenSaver.held.size() == 1);
        engine()->events.failed(u"broken"_s);
        WAIT_FOR(m_screenSaver.held.isEmpty());
    }

    void theScreenMaySleepAfterTheLastOne()
    {
        play(u"c"_s);
        WAIT_FOR(m_screenSaver.held.size() == 1);
        engine()->events.ended();
        WAIT_FOR(m_screenSaver.held.isEmpty());
        QCOMPARE(playerProperty(u"PlaybackStatus"_s), u"Paused"_s);
        callPlayer(u"Play"_s);
        QCOMPARE(engine()->sought, QList<double>{0}); // from the beginning again
        WAIT_FOR(m_screenSaver.held.size() == 1);
    }

    void aPauseBeforeTheScreenSaverHasAnsweredIsNotForgotten()
    {
        play(u"a"_s);
        state().avPlayer.pause(); // its answer has not been read
        state().avPlayer.play();
        state().avPlayer.pause();
        WAIT_FOR(m_screenSaver.last > 40 && m_screenSaver.held.isEmpty());
        state().avPlayer.play();
        WAIT_FOR(m_screenSaver.held.size() == 1);
    }

    void aScreenSaverIsAskedOnceHoweverOftenThePositionIsTold()
    {
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.ScreenSaver"_s));
        play(u"a"_s);
        settle(); // refused by now
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        const uint before = m_screenSaver.last;
        tellPosition(1);
        tellPosition(2);
        settle();
        QCOMPARE(m_screenSaver.last, before);
    }

    void withoutAScreenSaverItPlaysAllTheSame()
    {
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.ScreenSaver"_s));
        play(u"a"_s);
        playerProperty(u"PlaybackStatus"_s); // a call's way; the refusal has come by then
        state().avPlayer.pause();
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        state().avPlayer.play();
        WAIT_FOR(m_screenSaver.held.size() == 1); // of a service that came later
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
    static SearchResult result(const QString &id)
    {
        SearchResult result;
        result.id = id;
        result.title = u"Title "_s + id;
        result.uploader = u"Someone"_s;
        result.duration = 90;
        result.thumbnailURL = u"http://127.0.0.1/%1.jpg"_s.arg(id);
        result.videoURL = u"https://example.org/"_s + id;
        return result;
    }

    AppState &state() { return *m_fixture->state; }
    RecordingDesktop::SilentEngine *engine() { return *m_fixture->desktop.engine; }

    void play(const QString &id)
    {
        state().playBrowseResult(result(id));
        WAIT_FOR(!state().isLoadingStream());
    }

    void tellPosition(double position)
    {
        engine()->events.statusChanged({.position = position, .duration = 90});
    }

    /// Until the desktop has heard all that the program has sent.
    static void settle()
    {
        const auto call = QDBusMessage::createMethodCall(
            u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s,
            u"org.freedesktop.ScreenSaver"_s, u"Settle"_s);
        const QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call));
        WAIT_FOR(watcher.isFinished());
    }

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

    // The desktop's side of the bus.
    QDBusConnection m_desktop =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
    ScreenSaver m_screenSaver;
    QList<QVariantMap> m_changes;
    QList<qlonglong> m_seeked;

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<MediaControl> m_control;
    std::unique_ptr<SleepInhibitor> m_inhibitor;
    std::unique_ptr<MediaSession> m_session;
};

QTEST_GUILESS_MAIN(MediaSessionTest)
#include "MediaSessionTest.moc"
