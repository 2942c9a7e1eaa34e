// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFileViewer.h"
#include "DesktopNotifier.h"
#include "StateFixture.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// What answers for the desktop's notifications.
class NotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public Q_SLOTS:
    QStringList GetCapabilities() const { return capabilities; }
    uint Notify(const QString & /*program*/, uint /*replaced*/, const QString & /*icon*/,
                const QString & /*title*/, const QString &body, const QStringList & /*actions*/,
                const QVariantMap &hints, int /*lifetime*/)
    {
        bodies.append(body);
        lastHints = hints;
        return 1;
    }

public:
    QStringList capabilities;
    QStringList bodies;
    QVariantMap lastHints;
};

} // namespace

/// The desktop's services, some of which may be missing, on a bus of the test's own.
class DesktopTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_desktop.isConnected(), "this test needs a session bus: use dbus-run-session");
        QVERIFY(m_desktop.registerObject(u"/org/freedesktop/Notifications"_s, &m_notifications,
                                         QDBusConnection::ExportAllSlots));
        QDesktopServices::setUrlHandler(u"file"_s, this, "takeOpened");
    }
    void init()
    {
        m_notifications.bodies.clear();
        m_opened.clear();
    }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(u"file"_s); }

    void textIsEscapedOnlyForServicesReadingMarkup_data()
    {
        QTest::addColumn<QStringList>("capabilities");
        QTest::addColumn<QString>("body");
        QTest::newRow("reads markup")
            << QStringList{u"body"_s, u"body-markup"_s} << u"a &lt;b&gt; &amp; c"_s;
        QTest::newRow("does not") << QStringList{u"body"_s} << u"a <b> & c"_s;
    }

    void textIsEscapedOnlyForServicesReadingMarkup()
    {
        QFETCH(QStringList, capabilities);
        m_notifications.capabilities = capabilities;
        QVERIFY(m_desktop.registerService(u"org.freedesktop.Notifications"_s));
        DesktopNotifier notifier;
        notifier.post({.identifier = u"i"_s, .title = u"T"_s, .body = u"a <b> & c"_s});
        QTRY_COMPARE_WITH_TIMEOUT(m_notifications.bodies.size(), 1, patience);
        QTEST(m_notifications.bodies.first(), "body");
        QCOMPARE(m_notifications.lastHints[u"sound-name"_s].toString(), u"message-new-instant"_s);
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.Notifications"_s));
    }

    void aLateServiceGetsTheNextNotification()
    {
        m_notifications.capabilities = QStringList{u"body"_s};
        DesktopNotifier notifier;
        notifier.requestPermission();
        notifier.post({.identifier = u"i"_s, .title = u"T"_s, .body = u"nobody reads it"_s});
        // Behind these calls on the way there.
        const auto call = QDBusConnection::sessionBus().interface()->isServiceRegistered(
            u"org.freedesktop.Notifications"_s);
        QVERIFY(!call.value());
        QVERIFY(m_desktop.registerService(u"org.freedesktop.Notifications"_s));
        notifier.post({.identifier = u"j"_s, .title = u"T"_s, .body = u"read"_s});
        QTRY_VERIFY_WITH_TIMEOUT(m_notifications.bodies.contains(u"read"_s), patience);
        QVERIFY(m_desktop.unregisterService(u"org.freedesktop.Notifications"_s));
    }

    void withoutAFileManagerTheFolderIsOpened()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a b.mp4"_s);
        writeFile(file, "x");
        DesktopFileViewer viewer;
        viewer.select(file);
        QTRY_COMPARE_WITH_TIMEOUT(m_opened.size(), 1, patience);
        viewer.openFolder(folder.path());
        QTRY_COMPARE_WITH_TIMEOUT(m_opened.size(), 2, patience);
        viewer.select(folder.path()); // a folder stands for itself
        QTRY_COMPARE_WITH_TIMEOUT(m_opened.size(), 3, patience);
        for (const QUrl &opened : std::as_const(m_opened))
            QCOMPARE(QDir::cleanPath(opened.toLocalFile()), folder.path());
    }

    void whatIsNoFolderIsNeverOpened()
    {
        const QTemporaryDir folder;
        const QString page = folder.filePath(u"payload.html"_s);
        writeFile(page, "<script>");
        DesktopFileViewer viewer;
        viewer.openFolder(page); // of a forged ".../payload.html/x"
        viewer.select(page + u"/x"_s);
        viewer.select(folder.path()); // is opened behind these
        QTRY_VERIFY_WITH_TIMEOUT(!m_opened.isEmpty(), patience);
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(QDir::cleanPath(m_opened.first().toLocalFile()), folder.path());
    }

public Q_SLOTS:
    void takeOpened(const QUrl &url) { m_opened.append(url); }

private:
    QDBusConnection m_desktop =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
    NotificationService m_notifications;
    QList<QUrl> m_opened;
};

QTEST_MAIN(DesktopTest)
#include "DesktopTest.moc"
