// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplicationId.h"
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
        QVERIFY(settle());
        QTRY_VERIFY_WITH_TIMEOUT(m_screenSaver.held.isEmpty(), patience);
        MediaSessionFixture::cleanup();
    }

    void theScreenIsAwakeWhileAVideoPlays()
    {
        QVERIFY(m_screenSaver.held.isEmpty());
        QVERIFY(play(u"a"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1, patience);
        QCOMPARE(m_screenSaver.said, applicationId + u": Playing a video"_s);
        state().avPlayer.pause();
        QTRY_VERIFY_WITH_TIMEOUT(m_screenSaver.held.isEmpty(), patience);
        state().avPlayer.play();
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1, patience);
        engine()->events.failed(u"broken"_s);
        QTRY_VERIFY_WITH_TIMEOUT(m_screenSaver.held.isEmpty(), patience);
    }

    void theScreenMaySleepAfterTheLastOne()
    {
        QVERIFY(play(u"c"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1, patience);
        engine()->events.ended();
        QTRY_VERIFY_WITH_TIMEOUT(m_screenSaver.held.isEmpty(), patience);
        state().avPlayer.play(); // from the beginning again
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1, patience);
    }

    void aPauseBeforeTheAnswerIsNotForgotten()
    {
        QVERIFY(play(u"a"_s));
        state().avPlayer.pause(); // its answer has not been read
        state().avPlayer.play();
        state().avPlayer.pause();
        QTRY_VERIFY_WITH_TIMEOUT(m_screenSaver.last > 40 && m_screenSaver.held.isEmpty(), patience);
        state().avPlayer.play();
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1, patience);
    }

    void theScreenSaverIsInhibitedOnlyOnce()
    {
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.ScreenSaver"_s));
        QVERIFY(play(u"a"_s));
        QVERIFY(settle()); // refused by now
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        const uint before = m_screenSaver.last;
        reportPosition(1);
        reportPosition(2);
        QVERIFY(settle());
        QCOMPARE(m_screenSaver.last, before);
    }

    void itPlaysWithoutAScreenSaver()
    {
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.ScreenSaver"_s));
        QVERIFY(play(u"a"_s));
        QVERIFY(settle()); // refused by now
        state().avPlayer.pause();
        QVERIFY(m_desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
        state().avPlayer.play();
        QTRY_COMPARE_WITH_TIMEOUT(m_screenSaver.held.size(), 1,
                                  patience); // of a service that came later
    }

private:
    /// Until the desktop has heard all that the program has sent, and the program its
    /// answers.
    [[nodiscard]] static bool settle()
    {
        const auto call = QDBusMessage::createMethodCall(
            u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s,
            u"org.freedesktop.ScreenSaver"_s, u"Settle"_s);
        const QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call));
        // Told behind the answers to earlier calls, which isFinished() does not wait for.
        const QSignalSpy answers(&watcher, &QDBusPendingCallWatcher::finished);
        return waitFor([&] { return answers.count() == 1; });
    }

    ScreenSaver m_screenSaver;
};

QTEST_GUILESS_MAIN(ScreenSaverTest)
#include "ScreenSaverTest.moc"
