// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureBounds.h"
#include "PictureSource.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

QByteArray encoded(const QImage &image, const char *format, bool isProgressive = false)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(isProgressive);
    writer.write(image);
    return buffer.data();
}

QImage picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 % 256, y * 3 % 256, (x + y) % 256));
    return image;
}

/// The progressive JPEG with its last scan so often more.
QByteArray withMoreScans(QByteArray jpeg, int count)
{
    const qsizetype last = jpeg.lastIndexOf("\xff\xda");
    const QByteArray scan = jpeg.mid(last, jpeg.size() - last - 2);
    const QByteArray end = jpeg.right(2);
    jpeg.chop(2);
    return jpeg + scan.repeated(count) + end;
}

/// The checksum that a PNG's chunks carry; one that is wrong would have it passed over.
QByteArray pngChecksum(const QByteArray &bytes)
{
    quint32 sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320 : 0);
    }
    QByteArray text(4, 0);
    qToBigEndian(~sum, text.data());
    return text;
}

QByteArray pngChunk(const QByteArray &kind, const QByteArray &content)
{
    QByteArray length(4, 0);
    qToBigEndian(quint32(content.size()), length.data());
    return length + kind + content + pngChecksum(kind + content);
}

} // namespace

/// What a picture may be, and where it may come from.
class PictureBoundsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesOfVideoSitesAreTaken_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QImage image = picture({640, 360});
        QTest::newRow("JPEG") << encoded(image, "jpg");
        QTest::newRow("progressive JPEG") << encoded(image, "jpg", true);
        QTest::newRow("PNG") << encoded(image, "png");
        QTest::newRow("transparent PNG")
            << encoded(image.convertToFormat(QImage::Format_ARGB32), "png");
        QTest::newRow("PNG with a palette")
            << encoded(image.convertToFormat(QImage::Format_Indexed8), "png");
        QTest::newRow("WebP") << encoded(image, "webp");
        QTest::newRow("40 megapixels") << encoded(picture({8000, 5000}), "jpg");
    }
    void picturesOfVideoSitesAreTaken()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!boundedPicture(bytes, {160, 90}).isNull());
    }

    void otherFormatsAreRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("GIF") << QByteArray("GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\xff\xff", 14);
        QTest::newRow("BMP") << encoded(picture({9, 9}), "bmp");
        QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("BMP said to be PNG")
            << "\x89PNG\r\n\x1a\n" + encoded(picture({9, 9}), "bmp");
        QTest::newRow("other RIFF") << QByteArray("RIFF\x10\x00\x00\x00WAVEfmt ", 16);
    }
    void otherFormatsAreRefused()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(boundedPicture(bytes, {160, 90}).isNull());
    }

    void scansAreCounted()
    {
        const QByteArray plain = encoded(picture({64, 64}), "jpg");
        const QByteArray progressive = encoded(picture({64, 64}), "jpg", true);
        QCOMPARE(jpegScans(plain), 1);
        const int usual = jpegScans(progressive);
        QVERIFY(usual > 3 && usual < 20);
        QCOMPARE(jpegScans(withMoreScans(progressive, 200)), usual + 200);
        QCOMPARE(jpegScans(withMoreScans(progressive, 130000)), 1000); // enough
    }

    void aJpegOfTooManyScansIsRefused()
    {
        const QByteArray progressive = encoded(picture({640, 360}), "jpg", true);
        const int usual = jpegScans(progressive);
        QVERIFY(!boundedPicture(withMoreScans(progressive, 100 - usual), {160, 90}).isNull());
        QVERIFY(boundedPicture(withMoreScans(progressive, 101 - usual), {160, 90}).isNull());
    }

    void ofALargeJpegFewerScansAreTaken()
    {
        // 16 megapixels, ten times.
        const QByteArray progressive = encoded(picture({4000, 4000}), "jpg", true);
        const int usual = jpegScans(progressive);
        QVERIFY(usual <= 10);
        QVERIFY(!boundedPicture(progressive, {160, 90}).isNull());
        QVERIFY(boundedPicture(withMoreScans(progressive, 11 - usual), {160, 90}).isNull());
    }

    void moreThan40MegapixelsAreRefused()
    {
        QImage vast(8001, 5000, QImage::Format_Mono);
        vast.fill(1);
        QVERIFY(boundedPicture(encoded(vast, "png"), {160, 90}).isNull());
    }

    void pngTextChunksAreNotUnpacked()
    {
        const QByteArray png = encoded(picture({64, 64}), "png");
        const qsizetype behindHeader = 8 + 25;
        const QByteArray bomb = pngChunk(
            "zTXt", "Comment" + QByteArray(2, 0) + qCompress(QByteArray(100'000, 'x')).mid(4));
        const QByteArray armed = png.left(behindHeader) + bomb.repeated(50) + png.mid(behindHeader);
        QVERIFY(armed.size() > png.size() + 50 * 100);
        QVERIFY(!barePng(armed).contains("zTXt"));
        QCOMPARE(boundedPicture(armed, {64, 64}), boundedPicture(png, {64, 64}));
        QVERIFY(boundedPicture(armed, {64, 64}).textKeys().isEmpty()); // nobody has read them
        QCOMPARE(barePng(barePng(png)), barePng(png));
    }

    void brokenPngsAreNoPictures_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray start("\x89PNG\r\n\x1a\n");
        QTest::newRow("start alone") << start;
        QTest::newRow("length beyond the end") << start + QByteArray("\x7f\xff\xff\xffIHDR", 8);
        QTest::newRow("length of all bits") << start + QByteArray("\xff\xff\xff\xffIHDR____", 12);
        QTest::newRow("no pixels") << start + pngChunk("IEND", {});
    }
    void brokenPngsAreNoPictures()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(boundedPicture(bytes, {160, 90}).isNull());
    }

    void picturesMayComeFromTheWebAlone_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("isAllowed");
        QTest::newRow("a name") << u"https://i.ytimg.com/vi/a/hq720.jpg"_s << true;
        QTest::newRow("a number") << u"http://93.184.216.34/a.png"_s << true;
        QTest::newRow("a number of six") << u"http://[2606:2800:220:1::1]/a.png"_s << true;
        QTest::newRow("a local name in front") << u"https://localhost.example.org/a"_s << true;
        for (const char *const host : {"localhost",
                                       "LOCALHOST",
                                       "localhost.",
                                       "a.localhost",
                                       "127.0.0.1",
                                       "127.1.2.3",
                                       "127.1",
                                       "2130706433",
                                       "0x7f.0.0.1",
                                       "0177.0.0.1",
                                       "0.0.0.0",
                                       "10.0.0.1",
                                       "172.16.0.1",
                                       "172.31.255.255",
                                       "192.168.1.1",
                                       "169.254.169.254",
                                       "100.64.0.1",
                                       "224.0.0.1",
                                       "255.255.255.255",
                                       "[::1]",
                                       "[::]",
                                       "[::ffff:127.0.0.1]",
                                       "[::ffff:10.0.0.1]",
                                       "[fe80::1]",
                                       "[fc00::1]",
                                       "[fd12::1]",
                                       "[fec0::1]",
                                       "[ff02::1]",
                                       "[64:ff9b::7f00:1]",
                                       "%31%32%37.0.0.1"})
            QTest::newRow(host) << u"http://%1/a.png"_s.arg(QLatin1String(host)) << false;
        QTest::newRow("a file") << u"file:///etc/hostname"_s << false;
        QTest::newRow("no host") << u"http:///a.png"_s << false;
        QTest::newRow("nothing") << QString() << false;
    }
    void picturesMayComeFromTheWebAlone()
    {
        QFETCH(QString, url);
        QTEST(PictureSource().isAllowed(QUrl(url)), "isAllowed");
    }

    void onePlaceMayBeExcepted()
    {
        const PictureSource source{.exception = u"127.0.0.1:8080"_s};
        QVERIFY(source.isAllowed(QUrl(u"http://127.0.0.1:8080/a"_s)));
        QVERIFY(!source.isAllowed(QUrl(u"http://127.0.0.1:8081/a"_s)));
        QVERIFY(!source.isAllowed(QUrl(u"http://127.0.0.1/a"_s)));
        QVERIFY(!source.isAllowed(QUrl(u"http://127.0.0.2:8080/a"_s)));
        QVERIFY(!source.isAllowed(QUrl(u"file://127.0.0.1:8080/a"_s)));
    }
};

QTEST_GUILESS_MAIN(PictureBoundsTest)
#include "PictureBoundsTest.moc"
