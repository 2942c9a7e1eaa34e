// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaSessionFixture.h"

#include <QDBusPendingCallWatcher>
#include <QSignalSpy>

namespace {

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

/// Whether the screen is kept awake.
class ScreenSaverTest : public MediaSessionFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.registerObject(u"/org/freedesktop/ScreenSaver"_s, &m_screenSaver,
                                         QDBusConnection::ExportAllSlots));
    }
    void init()
    {
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        MediaSessionFixture::init();
    }
    void cleanup()
    {
        state().stopPlayback();
        settle();
        WAIT_FOR(m_screenSaver.held.isEmpty());
        MediaSessionFixture::cleanup();
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
        state().avPlayer.play(); // from the beginning again
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
        settle(); // refused by now
        state().avPlayer.pause();
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        state().avPlayer.play();
        WAIT_FOR(m_screenSaver.held.size() == 1); // of a service that came later
    }

private:
    /// Until the desktop has heard all that the program has sent, and the program its
    /// answers.
    static void settle()
    {
        const auto call = QDBusMessage::createMethodCall(
            u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s,
            u"org.freedesktop.ScreenSaver"_s, u"Settle"_s);
        const QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call));
        // Told behind the answers to earlier calls, which isFinished() does not wait for.
        const QSignalSpy answers(&watcher, &QDBusPendingCallWatcher::finished);
        WAIT_FOR(answers.count() == 1);
    }

    ScreenSaver m_screenSaver;
};

QTEST_GUILESS_MAIN(ScreenSaverTest)
#include "ScreenSaverTest.moc"
