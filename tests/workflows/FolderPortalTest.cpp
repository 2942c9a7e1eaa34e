// SPDX-License-Identifier: GPL-3.0-or-later
#include "FolderPortal.h"
#include "Patience.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// The desktop's chooser, in a thread of its own as it is in a program of its own.
class Portal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
    Q_PROPERTY(uint version MEMBER version)

public:
    uint version = 4;
    std::optional<QVariantMap> results; ///< what is answered at once
    uint response = 0;

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString &window, const QString &title,
                             const QVariantMap &options)
    {
        const QString client = message().service().mid(1).replace(u'.', u'_');
        const QString path = portalPath + u"/request/"_s + client + u'/'
            + options.value(u"handle_token"_s).toString();
        if (results) {
            auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s,
                                                     u"Response"_s);
            signal.setArguments({response, *results});
            connection().send(signal);
        }
        Q_EMIT asked(window, title, options);
        return QDBusObjectPath(path);
    }

Q_SIGNALS:
    void asked(const QString &window, const QString &title, const QVariantMap &options);
};

/// Does something once, right before the first answer from the bus is delivered.
class BeforeAnAnswer : public QObject
{
    Q_OBJECT

public:
    explicit BeforeAnAnswer(std::function<void()> deed)
        : m_deed(std::move(deed))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::MetaCall && qobject_cast<QDBusPendingCallWatcher *>(object)
            && m_deed)
            std::exchange(m_deed, {})();
        return false;
    }

private:
    std::function<void()> m_deed;
};

} // namespace

/// The folder chooser of a desktop that answers in all kinds of ways.
class FolderPortalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_portal = std::make_unique<Portal>();
        m_asked.clear();
        connect(m_portal.get(), &Portal::asked, this,
                [this](const QString &window, const QString &title, const QVariantMap &options) {
                    m_asked.append({window, title, options});
                });
        m_portal->moveToThread(&m_thread);
        m_thread.start();
        m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
        QVERIFY(m_bus.registerObject(portalPath, m_portal.get(),
                                     QDBusConnection::ExportAllSlots
                                         | QDBusConnection::ExportAllProperties));
        QVERIFY(m_bus.registerService(portalName));
    }
    void cleanup()
    {
        QVERIFY(m_bus.unregisterService(portalName)); // disconnecting does it later
        QDBusConnection::disconnectFromBus(u"portal"_s);
        m_thread.quit();
        m_thread.wait();
        m_portal.reset();
    }

    void theChoiceArrives()
    {
        m_portal->results = {{u"uris"_s, QStringList{u"file:///home/ada/My%20videos"_s}}};
        FolderPortal chooser;
        QSignalSpy chosen(&chooser, &FolderPortal::chosen);
        chooser.open(u"x11:1f"_s, u"/home/ada"_s);
        QVERIFY(waitFor([&] { return !chosen.isEmpty(); }));
        QCOMPARE(chosen.first().first().toUrl(), QUrl::fromLocalFile(u"/home/ada/My videos"_s));
    }

    void whatIsNoFolderHereIsNotChosen()
    {
        m_portal->results = {{u"uris"_s, QStringList{u"sftp://host/videos"_s}}};
        FolderPortal chooser;
        QSignalSpy chosen(&chooser, &FolderPortal::chosen);
        QSignalSpy unavailable(&chooser, &FolderPortal::unavailable);
        chooser.open({}, {});
        QVERIFY(waitFor([&] { return !m_asked.isEmpty(); }));
        letAnswersArrive();
        QVERIFY(chosen.isEmpty());
        QVERIFY(unavailable.isEmpty());
    }

    void itIsToldTheTitleAndTheWindow()
    {
        const QVariantList told = toldBy(4);
        QCOMPARE(told.at(0).toString(), u"x11:1f"_s);
        QCOMPARE(told.at(1).toString(), u"Choose Download Folder"_s);
        QCOMPARE(told.at(2).toMap().value(u"accept_label"_s).toString(), u"Select Folder"_s);
        QCOMPARE(told.at(2).toMap().value(u"directory"_s), QVariant(true));
    }

    void itStartsInTheFolderWhereThePortalCan()
    {
        const QByteArray bytes = QByteArrayLiteral("/home/ada/\xc3\x9c") + '\0';
        QCOMPARE(toldBy(4).at(2).toMap().value(u"current_folder"_s).toByteArray(), bytes);
        QVERIFY(!toldBy(3).at(2).toMap().contains(u"current_folder"_s));
    }

    void anOldPortalIsNone()
    {
        m_portal->version = 2;
        FolderPortal chooser;
        QSignalSpy unavailable(&chooser, &FolderPortal::unavailable);
        chooser.open({}, {});
        QVERIFY(waitFor([&] { return !unavailable.isEmpty(); }));
    }

    void aPortalThatFailsIsNone()
    {
        m_portal->results.emplace();
        m_portal->response = 2;
        FolderPortal chooser;
        QSignalSpy unavailable(&chooser, &FolderPortal::unavailable);
        chooser.open({}, {});
        QVERIFY(waitFor([&] { return !unavailable.isEmpty(); }));
    }

    void withoutABusThereIsNone()
    {
        FolderPortal chooser(QDBusConnection(u"no such bus"_s));
        QSignalSpy unavailable(&chooser, &FolderPortal::unavailable);
        QSignalSpy failed(this, &FolderPortalTest::callFailed);
        BusObject(QDBusConnection(u"no such bus"_s), portalName, portalPath, portalName)
            .call(u"Any"_s, {}, this, [this](const QDBusMessage &) { Q_EMIT callFailed(); });
        chooser.open({}, {});
        QVERIFY(waitFor([&] { return !failed.isEmpty(); }));
        QCOMPARE(unavailable.size(), 1); // as soon as the call, without patience
    }

    void openedTwiceShowsOne()
    {
        FolderPortal chooser;
        chooser.open(u"x11:1"_s, {});
        const BeforeAnAnswer press([&] { chooser.open(u"x11:2"_s, {}); });
        QVERIFY(waitFor([&] { return !m_asked.isEmpty(); }));
        for (int step = 0; step < 3; ++step) { // version, owner, chooser
            letAnswersArrive();
            QCoreApplication::processEvents();
        }
        QCOMPARE(m_asked.size(), 1);
        QCOMPARE(m_asked.first().first().toString(), u"x11:2"_s);
    }

Q_SIGNALS:
    void callFailed();

private:
    /// What the portal of a version is asked for.
    QVariantList toldBy(uint version)
    {
        m_portal->version = version;
        FolderPortal chooser;
        chooser.open(u"x11:1f"_s, u"/home/ada/Ü"_s);
        m_asked.clear();
        return waitFor([&] { return !m_asked.isEmpty(); }) ? m_asked.first() : QVariantList(3);
    }

    /// All that the portal has sent until now is here afterwards.
    static void letAnswersArrive()
    {
        const auto reply = BusObject(QDBusConnection::sessionBus(), portalName, portalPath,
                                     u"org.freedesktop.DBus.Peer"_s)
                               .callAndWait(u"Ping"_s, {}, patience);
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    }

    QThread m_thread;
    std::unique_ptr<Portal> m_portal;
    QList<QVariantList> m_asked; // of it
    QDBusConnection m_bus{QString()};
};

QTEST_GUILESS_MAIN(FolderPortalTest)
#include "FolderPortalTest.moc"
