// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvEngine.h"
#include "Clip.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <span>

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
        m_clip = madeClip(3);
        m_longClip = madeClip(8);
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
        m_statuses.clear();
        make();
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

    void picturesOfAbsurdSizeAreNotDecoded()
    {
        load("huge.mp4");
        WAIT_FOR(m_ends == 1 || !m_failures.isEmpty());
        // Newer engines show an empty picture in place of one that they do not decode.
        for (const QImage &each : std::as_const(m_pictures))
            QVERIFY(isBlack(each));
    }

    void theNumbersOfTheStreamBeforeAreNotToldOfTheNext()
    {
        load("long.mp4");
        WAIT_FOR(m_status.duration > 7);
        m_engine->seek(6);
        WAIT_FOR(m_status.position >= 6 && !m_status.isBuffering);
        m_statuses.clear();
        load("clip.mp4");
        WAIT_FOR(m_status.duration > 0 && m_status.duration < 4 && !m_status.isBuffering);
        for (const PlayerStatus &each : std::as_const(m_statuses)) {
            QVERIFY(each.duration < 4);
            QVERIFY(each.position < 2);
        }
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
        QTest::newRow("404") << "missing"_ba << u"http: HTTP error 404 Not Found"_s;
        QTest::newRow("a text file") << "text"_ba << u"unrecognized file format"_s;
        QTest::newRow("an empty file") << "empty"_ba << u"unrecognized file format"_s;
        QTest::newRow("ends in the middle") << "half.mp4"_ba << u"the connection was lost"_s;
        QTest::newRow("a short one ends in the middle")
            << "short.mp4"_ba << u"the connection was lost"_s;
        QTest::newRow("a list of others") << "list.m3u"_ba << u"it is a list of other addresses"_s;
        QTest::newRow("redirects to a file") << "to-a-file"_ba << u"loading failed"_s;
    }
    void whatCannotBePlayedFailsOnceWithAReason()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, reason);
        load(path);
        WAIT_FOR(!m_failures.isEmpty());
        QCOMPARE(m_failures.first(), u"The stream cannot be played: "_s + reason);
        QCOMPARE(m_ends, 0);
        load("clip.mp4"); // it is fit for the next one, and says no more of this one
        WAIT_FOR(m_ends == 1);
        QCOMPARE(m_failures.size(), 1);
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

    void aServerThatHangsIsGivenUp()
    {
        make({{"network-timeout", "1"}});
        load("hang");
        WAIT_FOR(m_failures.size() == 1);
        QCOMPARE(m_ends, 0);
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
        load("missing"); // until this has failed nothing else is told
        WAIT_FOR(m_failures.size() == 1);
        QCOMPARE(m_pictures.size(), 0);
        QCOMPARE(m_status.position, 0.0);
        QCOMPARE(m_ends, 0);
    }

    void theSoundReachesTheOutputAsLoudAsItIsWanted()
    {
        const int whole = loudness(1, false);
        QVERIFY2(whole > 2000, qPrintable(QString::number(whole)));
        const int low = loudness(0.5, false);
        QVERIFY2(low > 0 && low < whole / 2, qPrintable(QString::number(low)));
        QCOMPARE(loudness(1, true), 0);
    }

    void withoutASoundDeviceItPlays()
    {
        // No server and no card that could be meant.
        for (const char *const name : {"PULSE_SERVER", "PIPEWIRE_REMOTE", "ALSA_CONFIG_PATH"})
            qputenv(name, "/nowhere");
        make();
        load("clip.mp4");
        WAIT_FOR(m_ends == 1);
        QVERIFY(m_failures.isEmpty());
        QVERIFY(!isBlack(m_pictures.last()));
        for (const char *const name : {"PULSE_SERVER", "PIPEWIRE_REMOTE", "ALSA_CONFIG_PATH"})
            qunsetenv(name);
    }

private:
    void make(const std::vector<MpvOption> &options = {})
    {
        QString error;
        m_engine = MpvEngine::create(
            {.statusChanged =
                 [this](const PlayerStatus &status) { m_statuses.append(m_status = status); },
             .pictureChanged = [this](const QImage &picture) { m_pictures.append(picture); },
             .ended = [this] { ++m_ends; },
             .failed = [this](const QString &message) { m_failures.append(message); }},
            error, options);
        QVERIFY2(m_engine, qPrintable(error));
        m_engine->setPictureSize({321, 181});
    }

    /// The greatest sample of what the clip brings to an output that is a file.
    int loudness(double volume, bool isMuted)
    {
        const QTemporaryDir folder;
        const QByteArray path = folder.filePath(u"sound"_s).toUtf8();
        m_ends = 0;
        make({{"ao", "pcm"},
              {"ao-pcm-file", path.constData()},
              {"ao-pcm-waveheader", "no"},
              {"audio-format", "s16"}});
        m_engine->setVolume(volume);
        m_engine->setMuted(isMuted);
        load("clip.mp4");
        if (!QTest::qWaitFor([this] { return m_ends == 1; }, patience))
            return -1;
        m_engine.reset(); // writes what is left
        QFile file(QString::fromUtf8(path));
        if (!file.open(QIODevice::ReadOnly) || file.size() < 100'000)
            return -1;
        const QByteArray bytes = file.readAll();
        const std::span samples(reinterpret_cast<const qint16 *>(bytes.constData()),
                                static_cast<size_t>(bytes.size()) / sizeof(qint16));
        return *std::max_element(samples.begin(), samples.end());
    }

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
        else if (path == "/list.m3u")
            send(socket, request, "#EXTM3U\n#EXTINF:3,one\nclip.mp4\n");
        else if (path == "/empty")
            send(socket, request, "");
        else if (path == "/long.mp4")
            send(socket, request, m_longClip);
        else if (path == "/huge.mp4")
            send(socket, request, madeClip(1, {8000, 5100}, u"mjpeg"_s, 1));
        else if (path == "/short.mp4")
            socket->write("HTTP/1.0 200 OK\r\nContent-Length: " + QByteArray::number(m_clip.size())
                          + "\r\n\r\n" + m_clip.left(m_clip.size() / 2));
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
    QList<PlayerStatus> m_statuses;
    QStringList m_failures;
    PlayerStatus m_status;
    int m_ends = 0;
};

QTEST_MAIN(MpvEngineTest)
#include "MpvEngineTest.moc"
