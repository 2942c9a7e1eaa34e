// SPDX-License-Identifier: GPL-3.0-or-later
#include "BusProbe.h"
#include "Inhibitor.h"
#include "LauncherEntry.h"
#include "MediaControl.h"
#include "Patience.h"
#include "PrivateBus.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds probePatience{5};

// Qt waits for 25 s and more.
constexpr qint64 blocked = 10'000; // ms

} // namespace

/// A bus that hangs or dies costs what it is for, and nothing else.
class HungBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bus.emplace(); }
    void cleanup()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_bus.reset();
    }

    void aFirstPlaybackDoesNotWaitForAHungBus()
    {
        MediaControl control(m_bus->connection());
        Inhibitor screen(screenServices(m_bus->connection()));
        LauncherEntry launcher(m_bus->connection());
        m_bus->hang();
        QElapsedTimer clock;
        clock.start();
        control.show(item(u"a"_s));
        control.show(item(u"b"_s));
        screen.setInhibited(true);
        launcher.setProgress(0.5);
        control.hide();
        screen.setInhibited(false);
        launcher.setProgress({});
        QVERIFY(clock.elapsed() < blocked);
    }

    void theMediaControlAppearsOnceTheBusGoesOn()
    {
        const QDBusConnection bus = m_bus->connection();
        MediaControl control(bus);
        m_bus->hang();
        control.show(item(u"a"_s));
        m_bus->goOn();
        QVERIFY(isOnBus(bus));
    }

    void whatIsHiddenBeforeTheAnswerDoesNotAppear()
    {
        const QDBusConnection bus = m_bus->connection();
        MediaControl control(bus);
        m_bus->hang();
        control.show(item(u"a"_s));
        control.hide();
        control.show(item(u"b"_s));
        control.hide();
        m_bus->goOn();
        QVERIFY(!isOnBus(bus));
    }

    void aBusThatDiesIsNoLoss()
    {
        MediaControl control(m_bus->connection());
        Inhibitor screen(screenServices(m_bus->connection()));
        control.show(item(u"a"_s));
        m_bus->die();
        control.show(item(u"b"_s));
        screen.setInhibited(true);
        control.hide();
        control.show(item(u"c"_s));
        QCOMPARE(control.shown().id, u"c"_s);
    }

    void aBusAnswersBeforeTheStart()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus->address());
        QVERIFY(sessionBusAnswers(probePatience));
    }

    void aHungBusDoesNotAnswerBeforeTheStart()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus->address());
        m_bus->hang();
        QVERIFY(!sessionBusAnswers(std::chrono::milliseconds(50)));
    }

    void noBusKeepsNobodyWaiting_data()
    {
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("disabled") << QByteArray("disabled:");
        QTest::newRow("a socket that is not there") << QByteArray("unix:path=/nowhere/bus");
        QTest::newRow("an unknown way") << QByteArray("tcp:host=localhost,port=1");
        QTest::newRow("no path") << QByteArray("unix:guid=1");
        QTest::newRow("a long path") << "unix:path=/" + QByteArray(200, 'x');
        QTest::newRow("garbage") << QByteArray("unix:%,=;;path=");
    }
    void noBusKeepsNobodyWaiting()
    {
        QFETCH(QByteArray, address);
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("XDG_RUNTIME_DIR", "/nowhere");
        QVERIFY(sessionBusAnswers(probePatience));
    }

private:
    static NowPlaying item(const QString &id)
    {
        NowPlaying item;
        item.id = id;
        item.title = u"Title "_s + id;
        return item;
    }

    /// Asked on the media control's own connection, so that the bus has done before what that
    /// wanted of it.
    static bool isOnBus(const QDBusConnection &connection)
    {
        return busDaemon(connection)
            .callAndWait(u"NameHasOwner"_s, {u"org.mpris.MediaPlayer2.quillon"_s}, patience)
            .arguments()
            .value(0)
            .toBool();
    }

    std::optional<PrivateBus> m_bus;
};

QTEST_GUILESS_MAIN(HungBusTest)
#include "HungBusTest.moc"
