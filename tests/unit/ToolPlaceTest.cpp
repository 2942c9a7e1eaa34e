// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolPlace.h"
#include "FakeTool.h"
#include "ToolFolder.h"
#include "ToolRelease.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

/// Where tools lie, who put them there, and how one is exchanged.
class ToolPlaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        QVERIFY(QDir(m_folder->path()).mkpath(u"first"_s));
        QVERIFY(QDir(m_folder->path()).mkpath(u"own"_s));
        QVERIFY(QDir(m_folder->path()).mkpath(u"last"_s));
    }

    void withoutAToolTheFirstPathIsNamed()
    {
        const ToolReport report = locateTool(places());
        QVERIFY(!report.exists);
        QCOMPARE(report.path, first());
        QCOMPARE(report.obstacle, Obstacle::none);
    }

    void aToolLaterInTheOrderIsNoObstacle()
    {
        writeFile(last(), "tool");
        const ToolReport report = locateTool(places());
        QCOMPARE(report.path, last());
        QCOMPARE(report.obstacle, Obstacle::none);
    }

    void aToolEarlierInTheOrderIsAnObstacle()
    {
        writeFile(first(), "tool");
        writeFile(own(), ownTool());
        const ToolReport report = locateTool(places());
        QCOMPARE(report.path, first());
        QCOMPARE(report.obstacle, Obstacle::comesFirst);
        QCOMPARE(report.obstaclePath, first());
    }

    void theOwnToolIsKnownByItsMark()
    {
        writeFile(own(), ownTool());
        QVERIFY(isOwn(own()));
        QCOMPARE(locateTool(places()).obstacle, Obstacle::none);
    }

    void whatSomebodyElsePutThereIsAnObstacle_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *const kind : {"file", "folder", "link", "dangling link", "changed"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void whatSomebodyElsePutThereIsAnObstacle()
    {
        QFETCH(QString, kind);
        putThere(kind);
        QVERIFY(!isOwn(own()));
        const ToolReport report = locateTool(places());
        QCOMPARE(report.obstacle, Obstacle::foreign);
        QCOMPARE(report.obstaclePath, own());
    }

    void whatRenewsAForeignToolIsTold()
    {
        const QString venv = m_folder->filePath(u"pipx/venvs/yt-dlp/bin"_s);
        QVERIFY(QDir().mkpath(venv));
        writeFile(venv + u"/yt-dlp"_s, "#!/usr/bin/python3\nfrom yt_dlp import main\n");
        QVERIFY(QFile::link(venv + u"/yt-dlp"_s, own()));
        QCOMPARE(renewalCommand(own()), u"pipx upgrade yt-dlp"_s);

        const QString cellar = m_folder->filePath(u"Cellar/yt-dlp/1/bin"_s);
        QVERIFY(QDir().mkpath(cellar));
        writeFile(cellar + u"/yt-dlp"_s, "#!/usr/bin/python3\n");
        QVERIFY(QFile::link(cellar + u"/yt-dlp"_s, first()));
        QCOMPARE(renewalCommand(first()), u"brew upgrade yt-dlp"_s);

        writeFile(last(), "#!/usr/bin/env python3\nPK\x03\x04 and so on");
        QCOMPARE(renewalCommand(last()), last() + u" -U"_s);
        writeFile(last(),
                  "\x7f"
                  "ELF and so on");
        QCOMPARE(renewalCommand(last()), last() + u" -U"_s);
        writeFile(last(), "#!/usr/bin/python3\nimport yt_dlp\n");
        QCOMPARE(renewalCommand(last()), QString());
    }

    void aReadOnlyReleaseFileNeedsSudo()
    {
        QCOMPARE(selfUpdateCommand(u"/usr/local/bin/yt-dlp"_s, false),
                 u"sudo /usr/local/bin/yt-dlp -U"_s);
        QCOMPARE(selfUpdateCommand(u"/usr/local/bin/yt-dlp"_s, true),
                 u"/usr/local/bin/yt-dlp -U"_s);
    }

    void aPathForTheShellIsQuoted()
    {
        QVERIFY(QDir(m_folder->path()).mkpath(u"it's; here"_s));
        const QString odd = m_folder->filePath(u"it's; here/yt-dlp"_s);
        writeFile(odd,
                  "\x7f"
                  "ELF and so on");
        QVERIFY(renewalCommand(odd).endsWith(u"/it'\\''s; here/yt-dlp' -U"));
        QVERIFY(renewalCommand(odd).startsWith(u'\''));
    }

    void programsAreFoundInTheGivenPathAlone()
    {
        QVERIFY(!programIn({{u"PATH"_s, u"/usr/bin:/bin"_s}}, u"sh"_s).isEmpty());
        QCOMPARE(programIn({{u"PATH"_s, m_folder->path()}}, u"sh"_s), QString());
    }

    void sumsAreReadByName()
    {
        const QByteArray sum(64, 'A');
        const QByteArray other(64, 'b');
        const QByteArray sums =
            other + "  yt-dlp.exe\n" + sum + "  yt-dlp\n" + other + "  yt-dlp\n";
        QCOMPARE(sumFor(sums, u"yt-dlp"_s), QByteArray(64, 'a'));
        QCOMPARE(sumFor(sum + " *yt-dlp\r\n", u"yt-dlp"_s), QByteArray(64, 'a'));
        QVERIFY(!sumFor(other + "  yt-dlp.exe\n", u"yt-dlp"_s));
        QVERIFY(!sumFor("abc  yt-dlp\n", u"yt-dlp"_s));
        QVERIFY(!sumFor(QByteArray("\xff\x00\n", 3), u"yt-dlp"_s));
    }

    void theBuiltInKeyIsAKey()
    {
        const QByteArray key = dearmored(ReleaseSource::official().key);
        QVERIFY(key.size() > 500);
        QCOMPARE(static_cast<uchar>(key[0]), uchar(0x99)); // a public key packet
        QCOMPARE(dearmored("no key"), QByteArray());
        QCOMPARE(ReleaseSource::official().folder.scheme(), u"https"_s);
    }

    void aFinishedToolIsInstalledExecutable()
    {
        QVERIFY(QDir(m_folder->filePath(u"own"_s)).removeRecursively()); // it is made
        ToolFolder folder(own());
        QCOMPARE(folder.take(), std::nullopt);
        writeFile(folder.workFile(u"new"_s), ownTool());
        QCOMPARE(folder.install(folder.workFile(u"new"_s)), std::nullopt);
        QVERIFY(QFileInfo(own()).isExecutable());
        QVERIFY(isOwn(own()));
    }

    void anOwnToolIsReplaced()
    {
        writeFile(own(), ownTool());
        ToolFolder folder(own());
        QCOMPARE(folder.take(), std::nullopt);
        writeFile(folder.workFile(u"new"_s), "newer" + ownTool());
        QCOMPARE(folder.install(folder.workFile(u"new"_s)), std::nullopt);
        QCOMPARE(contentOf(own()), "newer" + ownTool());
    }

    void aForeignToolIsNotReplaced_data() { whatSomebodyElsePutThereIsAnObstacle_data(); }
    void aForeignToolIsNotReplaced()
    {
        QFETCH(QString, kind);
        putThere(kind);
        const QByteArray before = contentOf(own());
        ToolFolder folder(own());
        QCOMPARE(folder.take(), std::nullopt);
        writeFile(folder.workFile(u"new"_s), ownTool());
        const auto error = folder.install(folder.workFile(u"new"_s));
        QVERIFY(error);
        QVERIFY(error->contains(own()));
        QCOMPARE(contentOf(own()), before);
        QVERIFY(QFile::exists(own()) || QFileInfo(own()).isSymLink());
    }

    void oneUpdateAtATime()
    {
        ToolFolder folder(own());
        QCOMPARE(folder.take(), std::nullopt);
        writeFile(folder.workFile(u"new"_s), "x");
        ToolFolder second(own());
        const auto error = second.take();
        QVERIFY(error);
        QVERIFY(error->contains(u"Another Quillon"));
        ToolFolder::clearLeftovers(own());
        QVERIFY(QFile::exists(folder.workFile(u"new"_s)));
    }

    void nothingIsLeftOfAnUpdate()
    {
        {
            ToolFolder folder(own());
            QCOMPARE(folder.take(), std::nullopt);
            writeFile(folder.workFile(u"new"_s), "x");
        }
        QCOMPARE(ownFolder(), QStringList());
    }

    void remainsOfAKilledUpdateAreRemoved()
    {
        QVERIFY(QDir(m_folder->path()).mkpath(u"own/.quillon-update/deeper"_s));
        writeFile(m_folder->filePath(u"own/.quillon-update/packed"_s), "x");
        ToolFolder::clearLeftovers(own());
        QCOMPARE(ownFolder(), QStringList());
    }

    void aLinkAsWorkFolderIsNotFollowed()
    {
        writeFile(m_folder->filePath(u"last/precious"_s), "x");
        QVERIFY(QFile::link(m_folder->filePath(u"last"_s),
                            m_folder->filePath(u"own/.quillon-update"_s)));
        ToolFolder::clearLeftovers(own());
        QVERIFY(QFile::exists(m_folder->filePath(u"last/precious"_s)));
        QCOMPARE(ownFolder(), QStringList());
    }

    void aFolderThatCannotBeMadeIsSaid()
    {
        writeFile(m_folder->filePath(u"blocked"_s), "a file");
        ToolFolder folder(m_folder->filePath(u"blocked/bin/yt-dlp"_s));
        const auto error = folder.take();
        QVERIFY(error);
        QVERIFY2(error->contains(u"could not be made"), qPrintable(*error));
    }

private:
    QString first() const { return m_folder->filePath(u"first/yt-dlp"_s); }
    QString own() const { return m_folder->filePath(u"own/yt-dlp"_s); }
    QString last() const { return m_folder->filePath(u"last/yt-dlp"_s); }
    ToolPlaces places() const
    {
        return {.searchPaths = {first(), own(), last()}, .ownPath = own(), .environment = {}};
    }
    static QByteArray ownTool() { return "PK" + ownMark(QByteArray(64, '0')); }
    QStringList ownFolder() const
    {
        return QDir(m_folder->filePath(u"own"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void putThere(const QString &kind)
    {
        if (kind == u"file")
            writeFile(own(), "#!/bin/sh\n");
        else if (kind == u"folder")
            QVERIFY(QDir().mkpath(own()));
        else if (kind == u"changed")
            writeFile(own(), ownTool() + "x");
        else
            QVERIFY(QFile::link(last(), own()));
        if (kind == u"link")
            writeFile(last(), ownTool());
    }

    std::optional<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(ToolPlaceTest)
#include "ToolPlaceTest.moc"
