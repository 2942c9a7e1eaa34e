// SPDX-License-Identifier: GPL-3.0-or-later
#include "HistoryDocument.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

HistoryItem record()
{
    return {.id = QUuid::fromString(u"0fedcba9-8765-4321-0fed-cba987654321"_s),
            .title = u"Title"_s,
            .thumbnailURL = u""_s,
            .url = u"https://example.org/a?b=c"_s,
            .format = u"mp4"_s,
            .quality = u"Best"_s,
            .savedPath = u"/home/u/a.mp4"_s,
            .date = {785412345.123456}};
}

const QByteArray document =
    R"([{"id":"0FEDCBA9-8765-4321-0FED-CBA987654321","title":"Title","thumbnailURL":"",)"
    R"("url":"https://example.org/a?b=c","format":"mp4","quality":"Best",)"
    R"("savedPath":"/home/u/a.mp4","date":785412345.123456}])";

} // namespace

class HistoryDocumentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysStandInTheirOrder() { QCOMPARE(encodeHistory({record()}), document); }

    void anAbsentPathStaysAbsent()
    {
        HistoryItem item = record();
        item.savedPath.reset();
        const QByteArray json = *encodeHistory({item});
        QVERIFY(!json.contains("savedPath"));
        QVERIFY(!json.contains("null"));
        QCOMPARE(decodeHistory(json)->first(), item);
    }

    void datesCountFrom2001()
    {
        const auto moment = QDateTime::fromString(u"2001-01-02T00:00:00.500Z"_s, Qt::ISODateWithMs);
        QCOMPARE(ReferenceDate::fromDateTime(moment).seconds, 86400.5);
        QCOMPARE(ReferenceDate{86400.5}.toDateTime(), moment);
    }

    void everyDateComesBackToTheLastDigit()
    {
        for (const double seconds :
             {0.0, -1.0, 0.1, 785412345.123456, 785412345.1234567, 1e21, 1.0 / 3, -63114076800.0}) {
            HistoryItem item = record();
            item.date.seconds = seconds;
            QCOMPARE(decodeHistory(*encodeHistory({item}))->first().date.seconds, seconds);
        }
    }

    void anInvalidDateIsNotEncoded()
    {
        HistoryItem item = record();
        item.date.seconds = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(!encodeHistory({item}));
    }

    void oddTextsComeBackAsTheyWere()
    {
        for (const QString &text :
             {u"\"quotes\" and \\ and /"_s, u"line\nbreak\ttab\r"_s, u"🌅 שלום 街"_s,
              QString(QChar(1)), u"<b>&amp;"_s, QString(300, u'x')}) {
            HistoryItem item = record();
            item.title = text;
            QCOMPARE(decodeHistory(*encodeHistory({item}))->first(), item);
        }
    }

    void aDocumentComesBackExactly()
    {
        QCOMPARE(encodeHistory(*decodeHistory(document)), document);
        QCOMPARE(encodeHistory({}), QByteArray("[]"));
        QVERIFY(decodeHistory("[]")->isEmpty());
    }

    void theOrderOfRecordsIsKept()
    {
        HistoryItem other = record();
        other.title = u"Other"_s;
        const auto records = decodeHistory(*encodeHistory({record(), other}));
        QCOMPARE(records->at(0).title, u"Title"_s);
        QCOMPARE(records->at(1).title, u"Other"_s);
    }

    void aLowerCaseIdentifierIsRead()
    {
        QCOMPARE(decodeHistory(document.toLower()
                                   .replace("thumbnailurl", "thumbnailURL")
                                   .replace("savedpath", "savedPath"))
                     ->first()
                     .id,
                 record().id);
    }

    void aMissingKeyFailsTheWholeDocument_data()
    {
        QTest::addColumn<QByteArray>("key");
        for (const char *key : {"id", "title", "thumbnailURL", "url", "format", "quality", "date"})
            QTest::newRow(key) << QByteArray(key);
    }

    void aMissingKeyFailsTheWholeDocument()
    {
        QFETCH(QByteArray, key);
        QByteArray broken = document;
        broken.replace('"' + key + "\":", "\"other\":");
        QVERIFY(broken != document);
        QByteArray two = document;
        two.chop(1);
        QVERIFY(!decodeHistory(two + "," + broken.mid(1)));
    }

    void valuesOfOtherKindsFailTheDocument()
    {
        QVERIFY(!decodeHistory(QByteArray(document).replace("785412345.123456", "\"now\"")));
        QVERIFY(!decodeHistory(QByteArray(document).replace("\"Title\"", "5")));
        QVERIFY(!decodeHistory(QByteArray(document).replace("\"/home/u/a.mp4\"", "5")));
        QVERIFY(!decodeHistory(QByteArray(document).replace("0FEDCBA9-", "")));
        QVERIFY(decodeHistory(QByteArray(document).replace("\"/home/u/a.mp4\"", "null")));
    }

    void whatIsNoArrayIsNoHistory()
    {
        for (const char *text : {"", "{}", "5", "[5]", "[{}]", "garbage", "[", "\xff"})
            QVERIFY2(!decodeHistory(text), text);
    }
};

QTEST_GUILESS_MAIN(HistoryDocumentTest)
#include "HistoryDocumentTest.moc"
