// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleFixture.h"

#include <QProcess>

namespace {

qint64 childOf(const FakeTool &tool)
{
    return contentOf(tool.file(u"child"_s)).trimmed().toLongLong();
}

} // namespace

/// The end of the program: what goes on no more, and what is left.
class EndTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void quittingEndsTheToolAndItsChild()
    {
        tool().respond(sample("tool-with-a-child"));
        QVERIFY(startWithChild());
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void aPausedToolIsGoneToo()
    {
        tool().respond(sample("tool-with-a-child"));
        QVERIFY(startWithChild());
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void aToolThatRefusesToEndIsKilled()
    {
        tool().respond("ignore signals\n" + sample("tool-with-a-child"));
        QVERIFY(startWithChild());
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void killingTheProgramLeavesNoTool()
    {
        tool().respond("wait never");
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {u"--be-the-program"_s, tool().path()});
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        program.kill();
        QVERIFY(program.waitForFinished());
        for (const qint64 process : tool().processIdentifiers())
            QVERIFY(QTest::qWaitFor([&] { return !isAlive(process); }, 2000));
    }

    void destroyedInMidDownloadNothingGoesOn()
    {
        tool().respond("print [download] 10% of 1MiB at 1MiB/s ETA 00:01\n"
                       "wait never");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        state().startSingleDownload();
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        const QList<qint64> processes = tool().processIdentifiers();
        m_fixture->state.reset();
        for (const qint64 process : processes)
            QVERIFY(!isAlive(process));
        QCOMPARE(tool().processIdentifiers().size(), 2); // the next item did not start
        QVERIFY(notifier().posted.isEmpty());
        QVERIFY(!m_fixture->preferences->blob(u"quillon.history.v2"_s));
    }

    void destroyedBeforeItsTasksBeginTheyNeverDo()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        m_fixture->state.reset();
        QVERIFY(tool().calls().isEmpty());
    }

    void aSuccessDuringTheEndIsNotRecorded()
    {
        // The tool takes the request to end for a reason to succeed.
        tool().respond("obey SIGTERM\n"
                       "print [Merger] x\n"
                       "wait never");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(), DownloadUIStatus(Status::Processing{}),
                                  patience);
        m_fixture->state.reset();
        QVERIFY(!m_fixture->preferences->blob(u"quillon.history.v2"_s));
        QVERIFY(notifier().posted.isEmpty());
    }

private:
    [[nodiscard]] bool startWithChild()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        return waitFor([&] {
            return state().downloadStatus() == DownloadUIStatus(Status::Processing{})
                && childOf(tool()) > 0;
        });
    }
};

// The program that is killed: it starts the tool twice and waits.
static int beTheProgram(const QString &tool)
{
    YTDLPService service({tool});
    service.runProcess({}, [](const auto &) {});
    service.runProcessWithProgress(
        {}, [](auto...) {}, [] {}, [](const auto &) {});
    return QCoreApplication::exec();
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"--be-the-program")
        return beTheProgram(arguments[2]);
    EndTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "EndTest.moc"
