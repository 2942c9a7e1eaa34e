// SPDX-License-Identifier: GPL-3.0-or-later
#include "Clip.h"
#include "GreyPictures.h"
#include "MpvEngine.h"
#include "WindowFixture.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <unistd.h>

namespace {

constexpr int resultCount = 25;
constexpr double tolerance = 0.03; // of memory, between two quarters of a long run

int wanted(const char *name, int otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

/// Megabytes of this process that are in memory.
double residentMemory()
{
    const QList<QByteArray> fields = contentOf(u"/proc/self/statm"_s).split(' ');
    return fields.value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

double mean(const QList<double> &numbers)
{
    return std::accumulate(numbers.begin(), numbers.end(), 0.0)
        / static_cast<double>(numbers.size());
}

} // namespace

/// The real window with the real engine for a long time. A few switches and items,
/// or as many as the environment says.
class StressTest : public WindowFixture
{
    Q_OBJECT

public:
    StressTest()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *const socket = m_server.nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
        });
        m_server.listen(QHostAddress::LocalHost);
    }

private Q_SLOTS:
    void switchesAtRandomMoments()
    {
        QRandomGenerator random(20);
        QVERIFY(m_server.isListening() && m_clip.size() > 10000);
        QVERIFY(search());
        const int switches = wanted("QUILLON_SWITCHES", 20);
        for (int number = 0; number < switches; ++number) {
            act(random);
            // Moments are what this test is about: before, in and after each step.
            QTest::qWait(random.bounded(400));
            QVERIFY(state().playerError().value_or(QString()).isEmpty());
        }
        state().stopPlayback();
        QVERIFY(waitForTools());
        const auto last = state().browseResults().last();
        state().playBrowseResult(last); // and it still plays
        QTRY_VERIFY_WITH_TIMEOUT(state().avPlayer.hasEnded(), patience);
        QCOMPARE(state().nowPlaying(), last);
        state().stopPlayback();
    }

    void itemsThatFollowEachOther()
    {
        const QSignalSpy ends(&state().avPlayer, &MediaPlayer::playedToEnd);
        const int items = wanted("QUILLON_ITEMS", 5);
        QList<double> memory;
        while (ends.count() < items) {
            QVERIFY(search());
            state().playBrowseResult(state().browseResults().first());
            const qsizetype target = std::min(ends.count() + resultCount, qsizetype(items));
            while (ends.count() < target) {
                const qsizetype before = ends.count();
                QTRY_VERIFY_WITH_TIMEOUT(ends.count() > before, patience);
                memory.append(residentMemory());
            }
            QVERIFY(!state().playerError());
            state().stopPlayback();
            QVERIFY(waitForTools());
        }
        const qsizetype quarter = memory.size() / 4;
        if (quarter < 50)
            return; // too short to tell a growth
        const double third = mean(memory.mid(2 * quarter, quarter));
        const double fourth = mean(memory.mid(3 * quarter));
        qInfo("memory: %.1f MB in the third quarter, %.1f MB in the last", third, fourth);
        QVERIFY(fourth < third * (1 + tolerance));
    }

protected:
    void prepare(RecordingDesktop &desktop) override
    {
        desktop.realEngine = [](PlayerEngine::Events events, QString &error) {
            return MpvEngine::create(std::move(events), error);
        };
    }
    QQmlImageProviderBase *makeThumbnails() override { return new GreyPictures; }

private:
    [[nodiscard]] bool search()
    {
        m_fixture->tool.respond(response());
        state().mode = AppMode::browse;
        state().browseSearchQuery = u"boats"_s;
        state().searchYouTube();
        if (!waitFor([&] { return !state().isBrowseSearching(); }))
            return false;
        return state().browseResults().size() == resultCount;
    }

    /// Every search finds others.
    [[nodiscard]] QByteArray response() const
    {
        return "for *--get-url* print http://127.0.0.1:" + QByteArray::number(m_server.serverPort())
            + "/clip.mp4\nfor *--get-url* exit 0\nrepeat " + QByteArray::number(resultCount)
            + R"( print {"id":"{n}-{i}","duration":2})";
    }

    void act(QRandomGenerator &random)
    {
        MediaPlayer &player = state().avPlayer;
        switch (random.bounded(6)) {
        case 0:
            state().stopPlayback();
            break;
        case 1:
            player.togglePause();
            break;
        case 2:
            player.seek(random.bounded(2.0));
            break;
        default:
            player.setWish(this,
                           {.size = {random.bounded(100, 900), random.bounded(100, 500)},
                            .isForGraphicsCard = random.bounded(2) == 1});
            state().playBrowseResult(state().browseResults()[random.bounded(resultCount)]);
        }
    }

    [[nodiscard]] bool waitForTools()
    {
        const QList<qint64> tools = m_fixture->tool.processIdentifiers();
        return waitFor([&] { return std::none_of(tools.begin(), tools.end(), isAlive); });
    }

    void serve(QTcpSocket *socket)
    {
        socket->readAll();
        socket->write("HTTP/1.0 200 OK\r\nContent-Length: " + QByteArray::number(m_clip.size())
                      + "\r\n\r\n" + m_clip);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    const QByteArray m_clip = madeClip(2);
};

QTEST_MAIN(StressTest)
#include "StressTest.moc"
