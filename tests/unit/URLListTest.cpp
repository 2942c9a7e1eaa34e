// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLList.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

/// Several URLs in one text.
class URLListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyLinesOfTheWebCount()
    {
        QCOMPARE(webURLsIn(u" https://x/a \r\n\nword\nfile:///etc/passwd\nhttp://y/b"_s),
                 QStringList({u"https://x/a"_s, u"http://y/b"_s}));
    }

    void atMostAHundredAreTaken()
    {
        QCOMPARE(webURLsIn(u"https://x/a\n"_s.repeated(300)).size(), 100);
    }

    void linkFilesStandForTheirURLs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("urls");
        QTest::newRow("url") << u"a.url"_s << "[InternetShortcut]\r\nURL=https://x/a\r\n"_ba
                             << QStringList(u"https://x/a"_s);
        QTest::newRow("webloc")
            << u"a.webloc"_s
            << "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist><dict><key>URL</key><string>https://x/a</string></dict></plist>"_ba
            << QStringList(u"https://x/a"_s);
        QTest::newRow("txt") << u"a.txt"_s << "https://x/a\nhttps://x/b\n"_ba
                             << QStringList({u"https://x/a"_s, u"https://x/b"_s});
        QTest::newRow("another kind") << u"a.html"_s << "https://x/a"_ba << QStringList();
        QTest::newRow("nothing") << u"a.txt"_s << ""_ba << QStringList();
        QTest::newRow("not UTF-8") << u"a.txt"_s << "\xff\xfe\xff"_ba << QStringList();
        QTest::newRow("huge") << u"a.txt"_s << QByteArray(100 * 1024, ' ') + "https://x/a"
                              << QStringList();
    }
    void linkFilesStandForTheirURLs()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QStringList, urls);
        const QTemporaryDir folder;
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QCOMPARE(webURLsInDrop(QUrl::fromLocalFile(file.fileName()).toString()), urls);
    }

    void folderAndMissingFileGiveNothing()
    {
        const QTemporaryDir folder;
        QCOMPARE(webURLsInDrop(QUrl::fromLocalFile(folder.path()).toString()), QStringList());
        QCOMPARE(webURLsInDrop(u"file:///nowhere/a.txt"_s), QStringList());
    }
};

QTEST_GUILESS_MAIN(URLListTest)
#include "URLListTest.moc"
