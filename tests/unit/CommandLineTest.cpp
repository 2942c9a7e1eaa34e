// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

/// What the program's arguments mean.
class CommandLineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpAndVersionAreAnswered()
    {
        QVERIFY(answerTo({u"--help"_s}).startsWith(u"Usage: quillon [ADDRESS]...\n"));
        static const QRegularExpression version(u"^Quillon \\d+\\.\\d+\\.\\d+\n$"_s);
        QVERIFY(version.match(answerTo({u"--version"_s})).hasMatch());
        QCOMPARE(answerTo({u"https://x/1"_s, u"--help"_s}), answerTo({u"--help"_s}));
        QCOMPARE(answerTo({}), QString());
        QCOMPARE(answerTo({u"https://x/--help"_s}), QString());
    }

    void addressesAreTaken()
    {
        const QStringList urls{u"https://x/1"_s, u"http://x/2"_s};
        QCOMPARE(parseCommandLine(urls).urls, urls);
        QCOMPARE(parseCommandLine(urls).error, QString());
        QVERIFY(parseCommandLine({}).urls.isEmpty());
    }

    void whatIsNoAddressIsRefused_data()
    {
        QTest::addColumn<QString>("argument");
        for (const char *const argument :
             {"", "x", "--playlist", "-h", "file:///etc/passwd", "ftp://x/1", "https://", "/tmp/a"})
            QTest::newRow(argument) << QString::fromLatin1(argument);
    }
    void whatIsNoAddressIsRefused()
    {
        QFETCH(QString, argument);
        const CommandLine line = parseCommandLine({u"https://x/1"_s, argument});
        QVERIFY(line.urls.isEmpty());
        QCOMPARE(line.error,
                 u"“%1” is no address of the web. Try “quillon --help”."_s.arg(argument));
    }

    void theArgumentIsShownOnOneLine()
    {
        QCOMPARE(parseCommandLine({u"a\nb"_s}).error,
                 u"“a b” is no address of the web. Try “quillon --help”."_s);
    }

    void aHundredAddressesAreTheMost()
    {
        QStringList urls;
        for (int number = 0; number < 100; ++number)
            urls.append(u"https://x/%1"_s.arg(number));
        QCOMPARE(parseCommandLine(urls).urls.size(), 100);
        urls.append(u"https://x/100"_s);
        QCOMPARE(parseCommandLine(urls).error, u"At most 100 addresses can be opened at once."_s);
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
