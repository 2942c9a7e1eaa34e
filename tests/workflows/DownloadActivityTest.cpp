// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadActivity.h"
#include "ApplicationId.h"
#include "Inhibitor.h"
#include "LauncherEntry.h"
#include "StateFixture.h"

#include <QDBusObjectPath>

namespace {

/// What keeps the computer from being suspended: all three kinds of it.
class SessionManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")

public Q_SLOTS:
    uint Inhibit(const QString &program, uint window, const QString &reason, uint flags)
    {
        said = u"%1 %2 %3 %4"_s.arg(program).arg(window).arg(reason).arg(flags);
        held.append(++last);
        return last;
    }
    void Uninhibit(uint cookie) { held.removeOne(cookie); }

public:
    QString said;
    QList<uint> held;
    uint last = 0;
};

class PowerManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")

public Q_SLOTS:
    uint Inhibit(const QString & /*program*/, const QString & /*reason*/)
    {
        held.append(++last);
        return last;
    }
    void UnInhibit(uint cookie) { held.removeOne(cookie); }

public:
    QList<uint> held;
    uint last = 70;
};

class PortalRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public Q_SLOTS:
    void Close() { isOpen = false; }

public:
    bool isOpen = false;
};

class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString & /*window*/, uint flags, const QVariantMap &options)
    {
        said = u"%1 %2"_s.arg(flags).arg(options.value(u"reason"_s).toString());
        request.isOpen = true;
        return QDBusObjectPath(u"/request"_s);
    }

public:
    QString said;
    PortalRequest request;
};

} // namespace

/// What the desktop learns of downloads.
class DownloadActivityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_bus.isConnected(), "this test needs a session bus: use dbus-run-session");
        const auto all = QDBusConnection::ExportAllSlots;
        QVERIFY(m_bus.registerObject(u"/org/gnome/SessionManager"_s, &m_session, all));
        QVERIFY(m_bus.registerObject(u"/org/freedesktop/PowerManagement/Inhibit"_s, &m_power, all));
        QVERIFY(m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, &m_portal, all));
        QVERIFY(m_bus.registerObject(u"/request"_s, &m_portal.request, all));
        QVERIFY(m_bus.connect(QString(), QString(), u"com.canonical.Unity.LauncherEntry"_s,
                              u"Update"_s, this,
                              SLOT(takeUpdate(const QString &, const QVariantMap &))));
    }
    void init()
    {
        m_updates.clear();
        m_fixture = std::make_unique<StateFixture>();
        m_entry = std::make_unique<LauncherEntry>();
        m_suspend = std::make_unique<Inhibitor>(suspendServices());
        m_activity = std::make_unique<DownloadActivity>(state(), *m_entry, *m_suspend);
    }
    void cleanup()
    {
        state().isDownloading = false;
        state().isQueueDownloading = false;
        QTRY_VERIFY_WITH_TIMEOUT(m_session.held.isEmpty() && m_power.held.isEmpty()
                                     && !m_portal.request.isOpen,
                                 patience);
        m_activity.reset();
        m_suspend.reset();
        m_entry.reset();
        m_fixture.reset();
        QVERIFY(hearAll());
        for (const QString &name : std::as_const(m_names))
            QVERIFY(m_bus.unregisterService(name));
        m_names.clear();
    }

    void aRunIsNotSuspendedUntilItEnds()
    {
        QVERIFY(offer(u"org.gnome.SessionManager"_s));
        QVERIFY(offer(u"org.freedesktop.PowerManagement"_s));
        state().isDownloading = true;
        QTRY_COMPARE_WITH_TIMEOUT(m_session.held.size(), 1, patience);
        QCOMPARE(m_session.said, applicationId + u" 0 Downloading videos 4"_s);
        QVERIFY(m_power.held.isEmpty());
        state().isDownloading = false;
        QTRY_VERIFY_WITH_TIMEOUT(m_session.held.isEmpty(), patience);
    }

    void aPausedRunMaySleep()
    {
        QVERIFY(offer(u"org.gnome.SessionManager"_s));
        state().isQueueDownloading = true;
        QTRY_COMPARE_WITH_TIMEOUT(m_session.held.size(), 1, patience);
        state().isPaused = true;
        QTRY_VERIFY_WITH_TIMEOUT(m_session.held.isEmpty(), patience);
        state().isPaused = false;
        QTRY_COMPARE_WITH_TIMEOUT(m_session.held.size(), 1, patience);
    }

    void withoutASessionManagerThePowerManagerIsAsked()
    {
        QVERIFY(offer(u"org.freedesktop.PowerManagement"_s));
        state().isDownloading = true;
        QTRY_COMPARE_WITH_TIMEOUT(m_power.held.size(), 1, patience);
    }

    void withoutBothThePortalIsAsked()
    {
        QVERIFY(offer(u"org.freedesktop.portal.Desktop"_s));
        state().isDownloading = true;
        QTRY_VERIFY_WITH_TIMEOUT(m_portal.request.isOpen, patience);
        QCOMPARE(m_portal.said, u"4 Downloading videos"_s);
    }

    void aRunThatEndsWhileAskingIsReleased()
    {
        QVERIFY(offer(u"org.gnome.SessionManager"_s));
        const uint before = m_session.last;
        state().isDownloading = true;
        state().isDownloading = false;
        QTRY_COMPARE_WITH_TIMEOUT(m_session.last, before + 1, patience);
        QTRY_VERIFY_WITH_TIMEOUT(m_session.held.isEmpty(), patience);
    }

    void aBrowseDownloadIsNotSuspendedEither()
    {
        QVERIFY(offer(u"org.gnome.SessionManager"_s));
        state().browseDownloadStatuses = {{u"a_mp4"_s, Status::Downloading{}}};
        QTRY_COMPARE_WITH_TIMEOUT(m_session.held.size(), 1, patience);
        state().browseDownloadStatuses = {{u"a_mp4"_s, Status::Done{}}};
        QTRY_VERIFY_WITH_TIMEOUT(m_session.held.isEmpty(), patience);
    }

    void theIconShowsASingleRunsProgress()
    {
        state().totalDownloadCount = 2;
        state().currentDownloadIndex = 2;
        state().downloadProgress = 0.5;
        state().isDownloading = true;
        QTRY_COMPARE_WITH_TIMEOUT(m_updates, QStringList(icon(u"0.75 shown"_s)), patience);
        state().isDownloading = false;
        QTRY_COMPARE_WITH_TIMEOUT(m_updates.last(), icon(u"0 hidden"_s), patience);
    }

    void theIconShowsTheQueuesProgress()
    {
        auto item = std::make_shared<DownloadItem>(u"https://x/1"_s);
        state().queue = {item, std::make_shared<DownloadItem>(u"https://x/2"_s)};
        state().totalDownloadCount = 2;
        state().currentDownloadIndex = 1;
        state().isQueueDownloading = true;
        item->status = Status::Downloading{.progress = 0.5};
        QTRY_COMPARE_WITH_TIMEOUT(m_updates.value(1), icon(u"0.25 shown"_s), patience);
    }

    void theIconHearsOfWholePercentsAlone()
    {
        state().totalDownloadCount = 1;
        state().currentDownloadIndex = 1;
        state().isDownloading = true;
        for (int step = 0; step <= 1000; ++step)
            state().downloadProgress = step / 1000.0;
        QTRY_VERIFY_WITH_TIMEOUT(m_updates.contains(icon(u"1 shown"_s)), patience);
        QCOMPARE(m_updates.size(), 101);
    }

    void theIconIsBareWhenTheProgramEnds()
    {
        state().isDownloading = true;
        QTRY_VERIFY_WITH_TIMEOUT(!m_updates.isEmpty(), patience);
        m_activity.reset();
        m_entry = std::make_unique<LauncherEntry>();
        QTRY_COMPARE_WITH_TIMEOUT(m_updates.last(), icon(u"0 hidden"_s), patience);
    }

public Q_SLOTS:
    void takeUpdate(const QString &program, const QVariantMap &facts)
    {
        m_updates.append(
            u"%1 %2 %3"_s.arg(program.section(u'/', -1))
                .arg(facts.value(u"progress"_s).toDouble())
                .arg(facts.value(u"progress-visible"_s).toBool() ? u"shown"_s : u"hidden"_s));
    }

private:
    /// What a dock hears of the program's icon.
    static QString icon(const QString &said) { return applicationId + u".desktop "_s + said; }

    AppState &state() { return *m_fixture->state; }

    /// Waits for what has been sent to docks so far.
    [[nodiscard]] bool hearAll()
    {
        QDBusMessage last =
            QDBusMessage::createSignal(u"/"_s, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
        last << u"application://last"_s << QVariantMap();
        return QDBusConnection::sessionBus().send(last)
            && waitFor([&] { return m_updates.contains(u"last 0 hidden"_s); });
    }

    [[nodiscard]] bool offer(const QString &name)
    {
        m_names.append(name);
        return m_bus.registerService(name);
    }

    // Not the program's own, which would be answered without the bus.
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
    SessionManager m_session;
    PowerManager m_power;
    Portal m_portal;
    QStringList m_names;
    QStringList m_updates;
    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<LauncherEntry> m_entry;
    std::unique_ptr<Inhibitor> m_suspend;
    std::unique_ptr<DownloadActivity> m_activity;
};

QTEST_GUILESS_MAIN(DownloadActivityTest)
#include "DownloadActivityTest.moc"
