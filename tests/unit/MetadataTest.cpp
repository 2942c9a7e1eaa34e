// SPDX-License-Identifier: GPL-3.0-or-later
#include "Metadata.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString url = u"https://example.org/watch?v=a"_s;

QJsonObject object(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    Q_ASSERT(document.isObject());
    return document.object();
}

VideoInfo video(const QByteArray &json)
{
    return parseVideoInfo(object(json), url);
}

QString thumbnail(const QByteArray &json)
{
    return bestThumbnail(object(json));
}

QString errorOf(const Reply<VideoInfo> &reply)
{
    if (const auto *const error = std::get_if<YTDLPError>(&reply))
        return error->errorDescription();
    if (const auto *const error = std::get_if<JSONReaderError>(&reply))
        return error->errorDescription();
    return {};
}

} // namespace

class MetadataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldIsRead()
    {
        const VideoInfo info = video(
            R"({"id":"i","title":"t","duration":61.5,"uploader":"u","thumbnail":"p","formats":[]})");
        QCOMPARE(info.id, u"i"_s);
        QCOMPARE(info.title, u"t"_s);
        QCOMPARE(info.duration, 61.5);
        QCOMPARE(info.uploader, u"u"_s);
        QCOMPARE(info.thumbnailURL, u"p"_s);
        QCOMPARE(info.originalURL, url);
        QVERIFY(!info.isPlaylist);
        QVERIFY(info.playlistEntries.isEmpty());
        QVERIFY(!info.playlistTitle);
    }

    void withoutTitleAVideoIsUnknown() { QCOMPARE(video("{}").title, u"Unknown Title"_s); }

    void aVideoWithoutIdGetsOne()
    {
        QCOMPARE(video("{}").id.size(), 36);
        QVERIFY(video("{}").id != video("{}").id);
        QCOMPARE(video(R"({"id":5})").id.size(), 36);
    }

    void valuesOfOtherKindsCountAsAbsent()
    {
        const VideoInfo info =
            video(R"({"title":null,"duration":"61","uploader":[],"thumbnail":5,"formats":{}})");
        QCOMPARE(info.title, u"Unknown Title"_s);
        QVERIFY(!info.duration);
        QCOMPARE(info.uploader, QString());
        QCOMPARE(info.thumbnailURL, QString());
        QVERIFY(info.availableHeights.isEmpty());
    }

    void theChannelStandsInForTheUploader()
    {
        QCOMPARE(video(R"({"channel":"c","uploader_id":"i"})").uploader, u"c"_s);
        QCOMPARE(video(R"({"uploader":null,"channel":null,"uploader_id":"i"})").uploader, u"i"_s);
        QCOMPARE(video(R"({"uploader":"","channel":"c"})").uploader, QString());
    }

    void heightsAreCollectedOnce()
    {
        const QByteArray formats =
            R"({"formats":[{"height":1080},{"height":720},{"height":720},{},{"height":0},)"
            R"({"height":-1},{"height":99.5},{"height":"480"},{"height":null}]})";
        QCOMPARE(video(formats).availableHeights, (QSet<qint64>{720, 1080}));
    }

    void oneInvalidFormatSpoilsTheList()
    {
        QVERIFY(video(R"({"formats":[{"height":1080},5]})").availableHeights.isEmpty());
    }

    void theWidestThumbnailWithin640IsChosen()
    {
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a","width":120},{"url":"b","width":320},)"
                           R"({"url":"c","width":480},{"url":"d","width":1280}]})"),
                 u"c"_s);
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a","width":640},{"url":"b","width":641}]})"),
                 u"a"_s);
    }

    void whenAllAreWiderTheWidestIsChosen()
    {
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a","width":1280},{"url":"b","width":1920}]})"),
                 u"b"_s);
    }

    void ofEqualWidthsTheEarlierIsChosen()
    {
        // So many that only a sort which keeps their order gets it right.
        const auto many = [](const QByteArray &width) {
            QByteArrayList list;
            for (int number = 0; number < 40; ++number)
                list.append(R"({"url":"N","width":W})");
            QByteArray document = R"({"thumbnails":[)" + list.join(',') + "]}";
            document.replace("W", width);
            for (int number = 0; number < 40; ++number)
                document.replace(document.indexOf('N'), 1, QByteArray::number(number));
            return document;
        };
        QCOMPARE(thumbnail(many("480")), u"0"_s);
        QCOMPARE(thumbnail(many("1280")), u"0"_s);
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a","width":480},{"url":"b","width":480}]})"),
                 u"a"_s);
    }

    void aThumbnailWithoutWidthCountsAsZero()
    {
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a"},{"url":"b","width":1}]})"), u"b"_s);
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a"},{"url":"b","width":1280}]})"), u"a"_s);
    }

    void aListWithoutURLsDoesNotFallBack()
    {
        QCOMPARE(thumbnail(R"({"thumbnails":[{"width":1}],"thumbnail":"t"})"), QString());
        QCOMPARE(thumbnail(R"({"thumbnails":[],"thumbnail":"t"})"), QString());
    }

    void anInvalidThumbnailListFallsBack()
    {
        QCOMPARE(thumbnail(R"({"thumbnails":[{"url":"a"},5],"thumbnail":"t"})"), u"t"_s);
        QCOMPARE(thumbnail(R"({"thumbnails":null,"thumbnail":"t"})"), u"t"_s);
        QCOMPARE(thumbnail("{}"), QString());
    }

    void invalidJsonGivesTheParsersError()
    {
        for (const char *output : {"", "garbage", "{", "{}{}", "{}\n{}\n", "5"}) {
            const auto reply = videoFromOutput(output, url);
            QVERIFY2(std::holds_alternative<JSONReaderError>(reply), output);
            QVERIFY(!errorOf(reply).isEmpty());
            QVERIFY(!errorOf(reply).startsWith(u"Parse error: "_s));
        }
    }

    void jsonWithoutAnObjectIsAParseError()
    {
        QCOMPARE(errorOf(videoFromOutput("[1]", url)),
                 u"Parse error: Could not parse video JSON"_s);
    }

    void oneObjectIsAVideo()
    {
        QCOMPARE(std::get<VideoInfo>(videoFromOutput("{\"title\":\"t\"}\n", url)).title, u"t"_s);
    }

    void aPlaylistIsMadeOfItsLines()
    {
        const VideoInfo info = playlistFromOutput(
            R"({"id":"a","title":"A","url":"ua","webpage_url":"wa","uploader":"U","thumbnail":"T"})"
            "\n \t \n"
            R"(  {"id":"b","webpage_url":"wb"}  )"
            "\nnot json\n[1]\n"
            R"({"id":"c"})",
            url);
        QVERIFY(info.isPlaylist);
        QCOMPARE(info.id, url);
        QCOMPARE(info.originalURL, url);
        QCOMPARE(info.title, u"Playlist (3 videos)"_s);
        QVERIFY(!info.playlistTitle);
        QVERIFY(!info.duration);
        QCOMPARE(info.thumbnailURL, u"T"_s);
        QCOMPARE(info.uploader, u"U"_s);
        QCOMPARE(info.playlistEntries.size(), 3);
        QCOMPARE(info.playlistEntries[0].originalURL, u"ua"_s);
        QCOMPARE(info.playlistEntries[1].originalURL, u"wb"_s);
        QCOMPARE(info.playlistEntries[2].originalURL, QString());
    }

    void aPlaylistObjectNamesThePlaylist()
    {
        const VideoInfo info = playlistFromOutput(
            R"({"_type":"playlist","title":"Mix","entries":[{"id":"a","url":"ua"},)"
            R"({"id":"b","webpage_url":"wb"},{"id":"c"}]})",
            url);
        QCOMPARE(info.title, u"Mix"_s);
        QCOMPARE(info.playlistTitle, u"Mix"_s);
        QCOMPARE(info.playlistEntries.size(), 3);
        // Inside a playlist object there is no other key for the URL.
        QCOMPARE(info.playlistEntries[0].originalURL, u"ua"_s);
        QCOMPARE(info.playlistEntries[1].originalURL, QString());
    }

    void aPlaylistObjectWithoutTitleIsCounted()
    {
        const VideoInfo info =
            playlistFromOutput(R"({"_type":"playlist","entries":[{},{},{}]})", url);
        QCOMPARE(info.title, u"Playlist (3 videos)"_s);
        QVERIFY(!info.playlistTitle);
    }

    void oneInvalidEntrySpoilsTheEntries()
    {
        const VideoInfo info =
            playlistFromOutput(R"({"_type":"playlist","title":"Mix","entries":[{},5]})", url);
        QVERIFY(info.playlistEntries.isEmpty());
        QCOMPARE(info.title, u"Mix"_s);
    }

    void anEmptyPlaylistHasNoVideos()
    {
        const VideoInfo info = playlistFromOutput("", url);
        QCOMPARE(info.title, u"Playlist (0 videos)"_s);
        QVERIFY(info.playlistEntries.isEmpty());
        QCOMPARE(info.thumbnailURL, QString());
    }
};

QTEST_GUILESS_MAIN(MetadataTest)
#include "MetadataTest.moc"
