// SPDX-License-Identifier: GPL-3.0-or-later
#include "Search.h"
#include "RequestArguments.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

class SearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theQueryIsOneArgumentAsTyped_data()
    {
        QTest::addColumn<QString>("query");
        QTest::newRow("words") << u"cat videos"_s;
        QTest::newRow("option-like") << u"--exec \"rm\" -x"_s;
        QTest::newRow("right to left") << u"שלום עולם"_s;
        QTest::newRow("long") << QString(2000, u'q');
    }
    void theQueryIsOneArgumentAsTyped()
    {
        QFETCH(QString, query);
        QCOMPARE(searchArguments(query, 20),
                 (QStringList{u"--extractor-args"_s, u"youtube:player_client=tv_embedded"_s,
                              u"--dump-json"_s, u"--flat-playlist"_s, u"--no-warnings"_s,
                              u"--quiet"_s, u"ytsearch20:"_s + query}));
    }

    void aStreamIsAskedForWithoutCookies()
    {
        QCOMPARE(streamArguments(u"https://x/1"_s),
                 (QStringList{u"--extractor-args"_s, u"youtube:player_client=tv_embedded"_s,
                              u"-f"_s, u"best[ext=mp4]/best"_s, u"--get-url"_s, u"--no-playlist"_s,
                              u"--no-warnings"_s, u"--quiet"_s, u"https://x/1"_s}));
    }

    void allFieldsAreRead()
    {
        const auto result =
            parsed("{\"id\":\"a-1\",\"title\":\"T\",\"uploader\":\"U\",\"channel\":\"C\","
                   "\"duration\":61.5,\"thumbnails\":[{\"url\":\"http://x/"
                   "wide\",\"width\":1280},{\"url\":\"http://x/fit\",\"width\":640}]}");
        QCOMPARE(result->id, u"a-1"_s);
        QCOMPARE(result->title, u"T"_s);
        QCOMPARE(result->uploader, u"U"_s);
        QCOMPARE(result->duration, 61.5);
        QCOMPARE(result->thumbnailURL, u"http://x/fit"_s);
        QCOMPARE(result->videoURL, u"https://www.youtube.com/watch?v=a-1"_s);
    }

    void withoutAnIdentifierThereIsNoResult()
    {
        QVERIFY(!parsed("{\"title\":\"T\"}"));
        QVERIFY(!parsed("{\"id\":7}"));
    }

    void whatIsMissingFallsBack()
    {
        const auto result = parsed("{\"id\":\"a\",\"title\":null,\"duration\":\"long\"}");
        QCOMPARE(result->title, u"Unknown"_s);
        QCOMPARE(result->uploader, QString());
        QVERIFY(!result->duration);
        QCOMPARE(result->thumbnailURL, u"https://i.ytimg.com/vi/a/mqdefault.jpg"_s);
        const auto channel = parsed("{\"id\":\"a\",\"channel\":\"C\",\"uploader_id\":\"I\"}");
        QCOMPARE(channel->uploader, u"C"_s);
        const auto uploader = parsed("{\"id\":\"a\",\"uploader_id\":\"I\"}");
        QCOMPARE(uploader->uploader, u"I"_s);
    }

    void thumbnailsWithoutAURLGiveTheBuiltOne()
    {
        const auto none = parsed("{\"id\":\"a\",\"thumbnails\":[{\"width\":1}]}");
        QCOMPARE(none->thumbnailURL, u"https://i.ytimg.com/vi/a/mqdefault.jpg"_s);
        const auto single = parsed("{\"id\":\"a\",\"thumbnail\":\"http://x/t\"}");
        QCOMPARE(single->thumbnailURL, u"http://x/t"_s);
    }

    void anIdentifierCannotChangeTheURL()
    {
        const auto result = parsed("{\"id\":\"a&list=b #c\"}");
        QCOMPARE(result->videoURL, u"https://www.youtube.com/watch?v=a%26list%3Db%20%23c"_s);
    }

    void badLinesAreSkippedInOrder()
    {
        const auto results =
            resultsFromOutput(" {\"id\":\"1\"} \r\n\nnonsense\n[1]\n{\"title\":\"x\"}\n"
                              "{\"id\":\"list\",\"entries\":[{\"id\":\"2\"},7,{\"id\":\"3\"}]}\n"
                              "{\"id\":\"4\"}");
        QStringList ids;
        for (const SearchResult &result : results)
            ids.append(result.id);
        QCOMPARE(ids, QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
        QVERIFY(resultsFromOutput("").isEmpty());
    }

    void ofTwoLinesTheFirstIsTheStream()
    {
        const auto reply = streamFromOutput("\n https://x/a?b=%20c\nhttps://x/2\n");
        QCOMPARE(std::get<QUrl>(reply), QUrl(u"https://x/a?b=%20c"_s));
    }

    void whatIsNoURLIsNoStream_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("blanks") << QByteArray(" \n\n ");
        QTest::newRow("words") << QByteArray("no URL here");
    }
    void whatIsNoURLIsNoStream()
    {
        QFETCH(QByteArray, output);
        const auto reply = streamFromOutput(output);
        QCOMPARE(std::get<YTDLPError>(reply).message(), u"Could not retrieve stream URL"_s);
    }

private:
    static std::optional<SearchResult> parsed(const QByteArray &json)
    {
        return parseSearchResult(QJsonDocument::fromJson(json).object());
    }
};

QTEST_MAIN(SearchTest)
#include "SearchTest.moc"
