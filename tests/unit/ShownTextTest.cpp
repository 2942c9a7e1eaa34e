// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShownText.h"

#include <QTest>

using namespace Qt::StringLiterals;

class ShownTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainTextIsShownAsItIs()
    {
        QCOMPARE(shownText(u"A  <b>title</b> — שלום"_s), u"A  <b>title</b> — שלום"_s);
        QCOMPARE(shownLine(u"A  <b>title</b> — שלום"_s), u"A  <b>title</b> — שלום"_s);
        QCOMPARE(shownText(QString()), QString());
        QCOMPARE(shownLine(QString()), QString());
    }

    void overridesOfDirectionAreLeftOut()
    {
        QCOMPARE(shownText(u"song\u202E3pm.exe"_s), u"song3pm.exe"_s);
        QCOMPARE(shownLine(u"\u202A\u202B\u202C\u202D\u202Ea"_s), u"a"_s);
        // Marks that only hint at a direction stay.
        QCOMPARE(shownLine(u"\u200Fא\u200E!"_s), u"\u200Fא\u200E!"_s);
    }

    void isolatesAreClosedAtTheEnd()
    {
        QCOMPARE(shownText(u"\u2067א"_s), u"\u2067א\u2069"_s);
        QCOMPARE(shownLine(u"\u2066a\u2068b\u2069"_s), u"\u2066a\u2068b\u2069\u2069"_s);
        QCOMPARE(shownText(u"\u2067א\u2069 b"_s), u"\u2067א\u2069 b"_s);
        QCOMPARE(shownText(u"a\u2069b"_s), u"ab"_s);
    }

    void linesBecomeOne()
    {
        QCOMPARE(shownLine(u"a\nb\r\n\r\nc"_s), u"a b c"_s);
        QCOMPARE(shownLine(u"a\u2028b\u2029c\u0085d\ve"_s), u"a b c d e"_s);
        QCOMPARE(shownText(u"a\nb"_s), u"a\nb"_s);
    }

    void endsAreTrimmed()
    {
        QCOMPARE(shownText(u"\n a\nb \n"_s), u"a\nb"_s);
        QCOMPARE(shownLine(u"\n a \n"_s), u"a"_s);
    }

    void longTextIsCut()
    {
        QCOMPARE(shownText(QString(3'000'000, u'x')), QString(10'000, u'x') + u'…');
        QCOMPARE(shownLine(QString(1'001, u'x')), QString(1'000, u'x') + u'…');
        QCOMPARE(shownLine(QString(1'000, u'x')), QString(1'000, u'x'));
    }

    void noCharacterIsCutInTwo()
    {
        const QString face = u"😀"_s;
        QCOMPARE(shownLine(QString(999, u'x') + face + u"more"_s), QString(999, u'x') + u'…');
    }
};

QTEST_GUILESS_MAIN(ShownTextTest)
#include "ShownTextTest.moc"
