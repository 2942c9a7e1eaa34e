// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplicationService.h"
#include "ApplicationId.h"
#include "Patience.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// What the desktop, or any other program of the session, asks of this one.
class ApplicationServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_service.emplace();
        QVERIFY(waitFor([&] { return hasName(); }));
    }
    void cleanup() { m_service.reset(); }

    void itIsActivated()
    {
        const QSignalSpy spy(&*m_service, &ApplicationService::activated);
        call(u"Activate"_s, {QVariantMap{{u"activation-token"_s, u"t1"_s}}});
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, patience);
        QCOMPARE(spy[0][0].toString(), u"t1"_s);
    }

    void itOpensURLs()
    {
        const QSignalSpy spy(&*m_service, &ApplicationService::openRequested);
        call(u"Open"_s, {QStringList{u"https://x/1"_s, u"https://x/2"_s}, QVariantMap()});
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, patience);
        QCOMPARE(spy[0][0].toStringList().size(), 2);
    }

    void itActs()
    {
        const QSignalSpy spy(&*m_service, &ApplicationService::actionRequested);
        call(u"ActivateAction"_s,
             {u"browse"_s, QVariantList(), QVariantMap{{u"desktop-startup-id"_s, u"s1"_s}}});
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, patience);
        QCOMPARE(spy[0][0].toString(), u"browse"_s);
        QCOMPARE(spy[0][1].toString(), u"s1"_s);
    }

    void aTokenThatIsNoneIsDropped_data()
    {
        QTest::addColumn<QVariant>("token");
        QTest::newRow("a line break") << QVariant(u"a\nb"_s);
        QTest::newRow("a space") << QVariant(u"a b"_s);
        QTest::newRow("not ASCII") << QVariant(u"ä"_s);
        QTest::newRow("long") << QVariant(QString(257, u'a'));
        QTest::newRow("a list") << QVariant(QStringList{u"a"_s, u"b"_s});
    }
    void aTokenThatIsNoneIsDropped()
    {
        QFETCH(QVariant, token);
        const QSignalSpy spy(&*m_service, &ApplicationService::activated);
        call(u"Activate"_s, {QVariantMap{{u"activation-token"_s, token}}});
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, patience);
        QCOMPARE(spy[0][0].toString(), QString());
    }

    void theNameIsGivenBack()
    {
        m_service->close();
        QVERIFY(waitFor([&] { return !hasName(); }));
    }

private:
    bool hasName() const
    {
        const BusObject daemon(m_other, u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                               u"org.freedesktop.DBus"_s);
        return daemon.callAndWait(u"NameHasOwner"_s, {applicationId}, 1000)
            .arguments()
            .value(0)
            .toBool();
    }

    void call(const QString &method, const QVariantList &arguments) const
    {
        const BusObject program(m_other, applicationId, u"/io/github/quillon/quillon"_s,
                                u"org.freedesktop.Application"_s);
        program.call(method, arguments);
    }

    QDBusConnection m_other =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
    std::optional<ApplicationService> m_service;
};

QTEST_GUILESS_MAIN(ApplicationServiceTest)
#include "ApplicationServiceTest.moc"
