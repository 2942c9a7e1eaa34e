// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvEngine.h"

#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30'000;

} // namespace

#define WAIT_FOR(condition) QVERIFY(QTest::qWaitFor([&] { return bool(condition); }, patience))

/// The real engine on streams of a server in this process.
class MpvEngineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qunsetenv("PULSE_SERVER");
        m_clip = made(3);
        m_longClip = made(8);
        QVERIFY(m_clip.size() > 10000);
        QVERIFY(m_server.listen(QHostAddress::LocalHost));
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *const socket = m_server.nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
        });
    }

    void init()
    {
        m_pictures.clear();
        m_failures.clear();
        m_ends = 0;
        m_status = {};
        QString error;
        m_engine = MpvEngine::create(
            {.statusChanged = [this](const PlayerStatus &status) { m_status = status; },
             .pictureChanged = [this](const QImage &picture) { m_pictures.append(picture); },
             .ended = [this] { ++m_ends; },
             .failed = [this](const QString &message) { m_failures.append(message); }},
            error);
        QVERIFY2(m_engine, qPrintable(error));
        m_engine->setPictureSize({321, 181});
    }
    void cleanup() { m_engine.reset(); }

    void aStreamIsPlayedToItsEndWithPicturesThatChange()
    {
        load("clip.mp4");
        WAIT_FOR(m_ends == 1);
        QVERIFY(m_failures.isEmpty());
        QVERIFY(m_pictures.size() > 10);
        QCOMPARE(m_pictures.last().size(), QSize(321, 181));
        QVERIFY(m_pictures.first() != m_pictures.last());
        QVERIFY(!isBlack(m_pictures[m_pictures.size() / 2]));
        QCOMPARE(qAlpha(m_pictures.last().pixel(100, 100)), 255);
        QVERIFY(m_status.duration > 2.8 && m_status.duration < 3.3);
        QVERIFY(m_status.position > 2.8);
        QVERIFY(m_status.loadedTo >= 2);
    }

    void whatHasEndedStaysAndCanBePlayedAgain()
    {
        load("clip.mp4");
        WAIT_FOR(m_ends == 1);
        m_engine->seek(1.5);
        WAIT_FOR(m_ends == 2);
    }

    void pausedItKeepsItsPlaceAndShowsWhereItIsSought()
    {
        m_engine->setPaused(true);
        load("clip.mp4");
        WAIT_FOR(!m_pictures.isEmpty() && !isBlack(m_pictures.last()));
        const QImage first = m_pictures.last();
        m_engine->seek(2);
        WAIT_FOR(m_status.position > 1.8 && m_pictures.last() != first);
        QCOMPARE(m_ends, 0);
        m_pictures.clear();
        m_engine->setPictureSize({160, 90});
        WAIT_FOR(!m_pictures.isEmpty() && m_pictures.last().size() == QSize(160, 90));
        QVERIFY(!isBlack(m_pictures.last()));
    }

    void aPlaceThatIsSoughtBeforeItBeginsIsKept()
    {
        m_engine->setPaused(true);
        load("clip.mp4");
        m_engine->seek(2);
        WAIT_FOR(m_status.position > 1.8);
    }

    void whatCannotBePlayedFailsOnceWithAReason_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("reason");
        QTest::newRow("404") << "missing"_ba << u"404"_s;
        QTest::newRow("a text file") << "text"_ba << u"The stream"_s;
        QTest::newRow("an empty file") << "empty"_ba << u"The stream"_s;
        QTest::newRow("ends in the middle") << "half.mp4"_ba << u"connection was lost"_s;
        QTest::newRow("redirects to a file") << "to-a-file"_ba << u"The stream"_s;
    }
    void whatCannotBePlayedFailsOnceWithAReason()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, reason);
        load(path);
        WAIT_FOR(!m_failures.isEmpty());
        QVERIFY2(m_failures.first().contains(reason), qPrintable(m_failures.first()));
        QCOMPARE(m_ends, 0);
    }

    void aServerThatRefusesFails()
    {
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost));
        const quint16 port = closed.serverPort();
        closed.close();
        m_engine->load(QUrl(u"http://127.0.0.1:%1/a.mp4"_s.arg(port)));
        WAIT_FOR(m_failures.size() == 1);
    }

    void aServerThatHangsHoldsNothingUp()
    {
        load("hang");
        WAIT_FOR(m_requests.contains("/hang"));
        load("clip.mp4");
        WAIT_FOR(m_ends == 1);
        QVERIFY(m_failures.isEmpty());
        load("hang");
        m_engine.reset(); // at once
    }

    void ofTwoLoadedAtOnceTheSecondIsPlayed()
    {
        load("missing");
        load("clip.mp4");
        WAIT_FOR(m_ends == 1);
        QVERIFY(m_failures.isEmpty());
    }

    void unloadedItTellsNothing()
    {
        load("clip.mp4");
        WAIT_FOR(m_status.position > 0.3);
        m_engine->unload();
        m_pictures.clear();
        m_status = {};
        QTest::qWait(300);
        QCOMPARE(m_pictures.size(), 0);
        QCOMPARE(m_status.position, 0.0);
        QCOMPARE(m_ends, 0);
    }

private:
    void load(const QByteArray &path)
    {
        m_engine->load(
            QUrl(u"http://127.0.0.1:%1/"_s.arg(m_server.serverPort()) + QString::fromLatin1(path)));
    }

    void answer(QTcpSocket *socket)
    {
        const QByteArray request = socket->readAll();
        const QByteArray path = request.split(' ').value(1);
        m_requests.append(path);
        if (path == "/hang")
            return;
        if (path == "/missing")
            socket->write("HTTP/1.0 404 Not Found\r\nContent-Length: 0\r\n\r\n");
        else if (path == "/to-a-file")
            socket->write("HTTP/1.0 302 Found\r\nLocation: file:///etc/hostname\r\n\r\n");
        else if (path == "/text")
            send(socket, request, "Only words, and no stream at all.\n");
        else if (path == "/empty")
            send(socket, request, "");
        else if (path == "/half.mp4")
            socket->write("HTTP/1.0 200 OK\r\nContent-Length: "
                          + QByteArray::number(m_longClip.size()) + "\r\n\r\n"
                          + m_longClip.left(m_longClip.size() / 2));
        else
            send(socket, request, m_clip);
        socket->disconnectFromHost();
    }

    static void send(QTcpSocket *socket, const QByteArray &request, const QByteArray &content)
    {
        const qsizetype header = request.indexOf("Range: bytes=");
        const qsizetype first =
            header < 0 ? 0 : request.mid(header + 13).split('-').first().toLongLong();
        const QByteArray size = QByteArray::number(content.size());
        socket->write("HTTP/1.1 206 Partial Content\r\nContent-Range: bytes "
                      + QByteArray::number(first) + "-" + QByteArray::number(content.size() - 1)
                      + "/" + size
                      + "\r\nContent-Length: " + QByteArray::number(content.size() - first)
                      + "\r\nConnection: close\r\n\r\n" + content.mid(first));
    }

    static QByteArray made(int seconds)
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"clip.mp4"_s);
        const QString duration = u"duration=%1"_s.arg(seconds);
        QProcess::execute(u"ffmpeg"_s,
                          {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                           u"testsrc=size=320x180:rate=25:"_s + duration, u"-f"_s, u"lavfi"_s,
                           u"-i"_s, u"sine="_s + duration, u"-g"_s, u"25"_s, u"-pix_fmt"_s,
                           u"yuv420p"_s, u"-movflags"_s, u"+faststart"_s, path});
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool isBlack(const QImage &picture)
    {
        for (int x = 0; x < picture.width(); x += 7) {
            if (qGray(picture.pixel(x, picture.height() / 2)) > 30)
                return false;
        }
        return true;
    }

    std::unique_ptr<MpvEngine> m_engine;
    QTcpServer m_server;
    QByteArray m_clip;
    QByteArray m_longClip;
    QList<QByteArray> m_requests;
    QList<QImage> m_pictures;
    QStringList m_failures;
    PlayerStatus m_status;
    int m_ends = 0;
};

QTEST_MAIN(MpvEngineTest)
#include "MpvEngineTest.moc"
