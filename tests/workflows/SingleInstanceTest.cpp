// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstance.h"
#include "ApplicationService.h"
#include "Patience.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// One program for each folder of preferences, whatever the session offers.
class SingleInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        QVERIFY(QDir(m_folder->path()).mkpath(u"session"_s));
        QFile::setPermissions(session(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", session().toUtf8());
    }

    void theSecondBringsTheFirstForward()
    {
        SingleInstance first(preferences());
        QCOMPARE(settle(first), Start::first);
        const ApplicationService service(m_bus);
        QStringList tokens;
        connect(&service, &ApplicationService::activated, this,
                [&](const QString &token) { tokens.append(token); });
        SingleInstance second(preferences());
        QCOMPARE(settle(second), Start::handedOver);
        QCOMPARE(tokens, QStringList(u"token"_s));
    }

    void theSecondHandsItsURLsOver()
    {
        const SingleInstance first(preferences());
        const ApplicationService service(m_bus);
        QStringList opened;
        connect(&service, &ApplicationService::openRequested, this,
                [&](const QStringList &urls) { opened = urls; });
        SingleInstance second(preferences());
        QCOMPARE(settle(second, {u"https://x/1"_s, u"https://x/2"_s}), Start::handedOver);
        QCOMPARE(opened, QStringList({u"https://x/1"_s, u"https://x/2"_s}));
    }

    void aSecondTakesOverFromAFirstThatEnds()
    {
        std::optional<SingleInstance> first(std::in_place, preferences());
        SingleInstance second(preferences());
        QTimer::singleShot(200, this, [&] { first.reset(); });
        QCOMPARE(settle(second, {}, 30s), Start::first);
    }

    void aSecondWaitsForAFirstThatHasJustBegun()
    {
        const SingleInstance first(preferences());
        std::optional<ApplicationService> service;
        SingleInstance second(preferences());
        QTimer::singleShot(200, this, [&] { service.emplace(m_bus); });
        QCOMPARE(settle(second, {}, 30s), Start::handedOver);
    }

    void aFirstThatDoesNotAnswerRefuses()
    {
        const SingleInstance first(preferences());
        SingleInstance second(preferences());
        QCOMPARE(settle(second, {}, 100ms), Start::refused);
    }

    void aFirstThatIsClosingIsNotAsked()
    {
        const SingleInstance first(preferences());
        ApplicationService service(m_bus);
        service.close();
        SingleInstance second(preferences());
        QCOMPARE(settle(second, {}, 100ms), Start::refused);
    }

    /// Another Quillon, on preferences of its own, may have the name on the bus.
    void onlyTheHolderOfTheLockIsAsked()
    {
        QString path;
        {
            const SingleInstance first(preferences());
            path = session() + u'/' + QDir(session()).entryList(QDir::Files | QDir::Hidden).first();
        }
        QFile lock(path);
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write("1\nanother\n" + QSysInfo::machineHostName().toUtf8() + "\n"
                   + QSysInfo::machineUniqueId() + "\n\n");
        lock.close();
        const ApplicationService service(m_bus);
        SingleInstance second(preferences());
        const Start start = settle(second, {}, 100ms);
        // The process of that number has another name, so its lock may count as stale.
        QVERIFY(start != Start::handedOver);
    }

    void otherPreferencesAreAnotherProgram()
    {
        const SingleInstance first(preferences());
        SingleInstance second(m_folder->filePath(u"others"_s));
        QCOMPARE(settle(second), Start::first);
    }

    void theSessionsFolderIsUsed()
    {
        const SingleInstance first(preferences());
        QCOMPARE(filesIn(session()), 1);
        QVERIFY(!QFileInfo::exists(preferences()));
    }

    void anUnsafeRuntimeFolderIsNotUsed_data()
    {
        QTest::addColumn<QString>("session");
        for (const char *const kind : {"none", "missing", "relative", "shared", "foreign"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void anUnsafeRuntimeFolderIsNotUsed()
    {
        QFETCH(QString, session);
        if (session == u"none")
            qunsetenv("XDG_RUNTIME_DIR");
        else if (session == u"missing")
            qputenv("XDG_RUNTIME_DIR", "/nowhere");
        else if (session == u"relative")
            qputenv("XDG_RUNTIME_DIR", "session");
        else if (session == u"shared")
            QFile::setPermissions(this->session(), QFile::Permissions(0x7777));
        else if (getuid() == 0)
            QVERIFY(chown(this->session().toUtf8().constData(), 12345, 12345) == 0);
        else
            qputenv("XDG_RUNTIME_DIR", "/root");
        SingleInstance first(preferences());
        QCOMPARE(settle(first), Start::first);
        QCOMPARE(filesIn(preferences()), 1);
        SingleInstance second(preferences());
        QCOMPARE(settle(second, {}, 100ms), Start::refused);
    }

    void aLockThatCannotBeHadIsSaid()
    {
        qunsetenv("XDG_RUNTIME_DIR");
        const QString folder = u"/proc/quillon"_s; // not even by root
        QTest::ignoreMessage(
            QtWarningMsg,
            "Quillon cannot tell whether another one runs: /proc/quillon cannot be written");
        SingleInstance first(folder);
        QCOMPARE(settle(first), Start::first);
    }

private:
    using Start = SingleInstance::Start;

    /// In a thread of its own, as another program would.
    Start settle(SingleInstance &instance, const QStringList &urls = {},
                 std::chrono::milliseconds patience = 30s)
    {
        Start start = Start::refused;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            start = instance.settle(urls, u"token"_s, QDBusConnection::sessionBus(), patience);
        }));
        thread->start();
        [[maybe_unused]] const bool hasEnded = waitFor([&] { return thread->isFinished(); });
        return start;
    }

    QString session() const { return m_folder->filePath(u"session"_s); }
    QString preferences() const { return m_folder->filePath(u"preferences"_s); }
    static qsizetype filesIn(const QString &folder)
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    }

    std::optional<QTemporaryDir> m_folder;
    // Not the one that asks, which would be answered without the bus.
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"first"_s);
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
