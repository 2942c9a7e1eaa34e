// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstance.h"
#include "FakeTool.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

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
        QVERIFY(first.isFirst());
        int requests = 0;
        connect(&first, &SingleInstance::activationRequested, this, [&] { ++requests; });
        const SingleInstance second(preferences());
        QVERIFY(!second.isFirst());
        QVERIFY(QTest::qWaitFor([&] { return requests == 1; }, 30000));
    }

    void otherPreferencesAreAnotherProgram()
    {
        const SingleInstance first(preferences());
        const SingleInstance second(m_folder->filePath(u"others"_s));
        QVERIFY(second.isFirst());
    }

    void theSessionsFolderIsUsed()
    {
        const SingleInstance first(preferences());
        QCOMPARE(filesIn(session()), 2);
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
        const SingleInstance first(preferences());
        QVERIFY(first.isFirst());
        QCOMPARE(filesIn(preferences()), 2);
        const SingleInstance second(preferences());
        QVERIFY(!second.isFirst());
    }

    void aLockThatCannotBeHadIsSaid()
    {
        qunsetenv("XDG_RUNTIME_DIR");
        const QString folder = u"/proc/quillon"_s; // not even by root
        QTest::ignoreMessage(
            QtWarningMsg,
            "Quillon cannot tell whether another one runs: /proc/quillon cannot be written");
        const SingleInstance first(folder);
        QVERIFY(first.isFirst());
    }

private:
    QString session() const { return m_folder->filePath(u"session"_s); }
    QString preferences() const { return m_folder->filePath(u"preferences"_s); }
    static qsizetype filesIn(const QString &folder)
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    }

    std::optional<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
