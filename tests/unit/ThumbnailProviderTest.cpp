// SPDX-License-Identifier: GPL-3.0-or-later
#include "ThumbnailProvider.h"
#include "PictureServer.h"
#include "StateFixture.h"

#include <QBuffer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Server = PictureServer;

namespace {

QByteArray encoded(const QImage &image, const char *format)
{
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

QImage picture(int width = 320, int height = 180)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

/// One picture asked for, and what became of it.
struct Request
{
    Request(ThumbnailProvider &provider, const QString &url, QSize size = {160, 90})
        : response(provider.requestImageResponse(
            u"10/"_s + QString::fromLatin1(url.toUtf8().toBase64()), size))
    {
        QObject::connect(response.get(), &QQuickImageResponse::finished, &context,
                         [this] { hasFinished = true; });
    }

    [[nodiscard]] QImage image() const
    {
        const std::unique_ptr<QQuickTextureFactory> factory(response->textureFactory());
        return factory ? factory->image() : QImage();
    }

    QObject context;
    std::unique_ptr<QQuickImageResponse> response;
    bool hasFinished = false;
};

} // namespace

/// Pictures from servers of every kind.
class ThumbnailProviderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPictureHasTheRequestedSizeAndCorners_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : {"png", "jpg", "webp"})
            QTest::newRow(format) << QByteArray(format);
    }

    void aPictureHasTheRequestedSizeAndCorners()
    {
        QFETCH(QByteArray, format);
        Server server;
        server.serve(encoded(picture(), format.constData()));
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.response->errorString(), QString());
        QCOMPARE(request.image().size(), QSize(160, 90));
        QCOMPARE(request.image().pixelColor(0, 0).alpha(), 0);
        QCOMPARE(request.image().pixelColor(80, 45).alpha(), 255);
    }

    void aPictureIsRequestedOnceThenCached()
    {
        Server server;
        server.serve(encoded(picture(), "png"));
        ThumbnailProvider provider(server.source());
        Request first(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(first.hasFinished, patience);
        Request again(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(again.hasFinished, patience);
        QCOMPARE(again.image(), first.image());
        QCOMPARE(server.asked, 1);
        Request larger(provider, server.url(), {320, 180});
        QTRY_VERIFY_WITH_TIMEOUT(larger.hasFinished, patience);
        QCOMPARE(larger.image().size(), QSize(320, 180));
        QCOMPARE(server.asked, 1);
    }

    void memoryIsBounded()
    {
        const auto url = [](int number) { return QUrl(u"http://x/%1"_s.arg(number)); };
        ThumbnailCache cache(3000);
        for (int number = 0; number < 10; ++number)
            cache.insert(url(number), QByteArray(1000, 'x'));
        QCOMPARE(cache.bytes(), 3000);
        QVERIFY(!cache.find(url(9)).isEmpty());
        QVERIFY(cache.find(url(6)).isEmpty());
    }

    void aServerThatHangsIsGivenUp()
    {
        Server server; // says nothing
        ThumbnailProvider provider(server.source(50ms));
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QVERIFY(!request.response->errorString().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(server.left, 1, patience);
    }

    void aServerThatDripsIsGivenUp()
    {
        Server server;
        server.answer = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n";
        server.drips = true;
        ThumbnailProvider provider(server.source(300ms));
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QVERIFY(!request.response->errorString().isEmpty());
    }

    void aClosedConnectionIsAnError()
    {
        Server server;
        server.serve(encoded(picture(), "png"));
        server.answer.chop(20);
        server.closes = true;
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QVERIFY(!request.response->errorString().isEmpty());
    }

    void whatIsNotAPictureIsAnError_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("a page") << QByteArray("<html><body>hello</body></html>");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a drawing") << QByteArray(
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect/></svg>");
        QTest::newRow("another format") << encoded(picture(), "bmp");
        QTest::newRow("half a header") << encoded(picture(), "png").left(20);
    }

    void whatIsNotAPictureIsAnError()
    {
        QFETCH(QByteArray, body);
        Server server;
        server.serve(body);
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QVERIFY(!request.response->errorString().isEmpty());
        QVERIFY(request.image().isNull());
    }

    void aPictureUnderAWrongTypeIsShown()
    {
        Server server;
        server.serve(encoded(picture(), "jpg"), "text/html");
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.image().size(), QSize(160, 90));
    }

    void twoHundredMegabytesAreNotDownloaded_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::newRow("announced") << QByteArray("Content-Length: 209715200\r\n");
        QTest::newRow("not announced") << QByteArray("Connection: close\r\n");
    }

    void twoHundredMegabytesAreNotDownloaded()
    {
        QFETCH(QByteArray, header);
        Server server;
        server.answer = "HTTP/1.1 200 OK\r\n" + header + "\r\n";
        server.floods = true;
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QVERIFY(!request.response->errorString().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(server.left, 1, patience);
        QVERIFY2(server.sent < 40 << 20, qPrintable(QString::number(server.sent)));
    }

    void aPictureOfMoreThanEightMebibytesIsRefused_data()
    {
        QTest::addColumn<qsizetype>("size");
        QTest::addColumn<bool>("isShown");
        QTest::newRow("at the limit") << qsizetype(8 << 20) << true;
        QTest::newRow("beyond it") << qsizetype((8 << 20) + 1) << false;
    }

    void aPictureOfMoreThanEightMebibytesIsRefused()
    {
        QFETCH(qsizetype, size);
        QFETCH(bool, isShown);
        const QByteArray body = encoded(picture(), "png").leftJustified(size, 'x');
        Server server;
        server.answer = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body;
        server.closes = true;
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.response->errorString().isEmpty(), isShown);
        QCOMPARE(request.image().isNull(), !isShown);
    }

    void aPictureOfAbsurdSizeIsRefused_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("vast") << QSize(7000, 7000);
        QTest::newRow("a strip") << QSize(20000, 1);
        QTest::newRow("a pole") << QSize(1, 20000);
    }

    void aPictureOfAbsurdSizeIsRefused()
    {
        QFETCH(QSize, size);
        QImage vast(size, QImage::Format_Mono);
        vast.fill(1);
        Server server;
        server.serve(encoded(vast, "png"));
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.response->errorString(), u"Not a picture"_s);
    }

    void aCancelledRequestIsDropped()
    {
        Server server; // says nothing
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_COMPARE_WITH_TIMEOUT(server.asked, 1, patience);
        request.response->cancel();
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QTRY_COMPARE_WITH_TIMEOUT(server.left, 1, patience);
    }

    void onlyTheWebIsAsked_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("file") << u"file:///etc/hostname"_s;
        QTest::newRow("no scheme") << u"127.0.0.1/a.png"_s;
        QTest::newRow("data") << u"data:image/png;base64,AAAA"_s;
        QTest::newRow("resource") << u"qrc:/a.png"_s;
        QTest::newRow("ftp") << u"ftp://127.0.0.1/a.png"_s;
        QTest::newRow("no host") << u"http:///a.png"_s;
        QTest::newRow("none") << QString();
        QTest::newRow("no text") << QString(QChar(0xD800)) + u"\u0001"_s;
    }

    void onlyTheWebIsAsked()
    {
        QFETCH(QString, url);
        ThumbnailProvider provider;
        Request request(provider, url);
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.response->errorString(), u"Not a URL of a picture"_s);
    }

    void redirectionsAwayFromTheWebAreRefused() { QVERIFY(!follows("file:///etc/hostname")); }

    void redirectionsToTheLocalNetworkAreRefused()
    {
        Server other;
        other.serve(encoded(picture(), "png"));
        QVERIFY(!follows(other.url().toUtf8()));
        QCOMPARE(other.asked, 0);
    }

    void aRedirectionThatIsAllowedIsFollowed()
    {
        Server server;
        server.serve(encoded(picture(), "png"));
        server.next = std::exchange(server.answer, redirection("/b.png"));
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        QTRY_VERIFY_WITH_TIMEOUT(request.hasFinished, patience);
        QCOMPARE(request.response->errorString(), QString());
        QCOMPARE(server.asked, 2);
    }

private:
    static QByteArray redirection(const QByteArray &target)
    {
        return "HTTP/1.1 302 Found\r\nLocation: " + target + "\r\nContent-Length: 0\r\n\r\n";
    }
    static bool follows(const QByteArray &target)
    {
        Server server;
        server.answer = redirection(target);
        ThumbnailProvider provider(server.source());
        Request request(provider, server.url());
        return !QTest::qWaitFor([&] { return request.hasFinished; }, 30000)
            || request.response->errorString().isEmpty();
    }
};

QTEST_MAIN(ThumbnailProviderTest)
#include "ThumbnailProviderTest.moc"
