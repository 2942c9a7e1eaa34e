// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleFixture.h"

#include <QProcess>

namespace {

/// The tool starts a child of its own, as the real one starts ffmpeg, and both
/// wait for ever. $DIR/child holds the child's number.
QByteArray toolWithChild(const QByteArray &before = {})
{
    return before
        + "sh -c 'echo $$ > \"'\"$DIR\"'/child\"; while :; do sleep 0.05; done' &\n"
          "echo '[Merger] x'\nwhile :; do sleep 0.05; done";
}

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
    void theToolAndItsChildAreGoneAfterAnOrderlyEnd()
    {
        tool().setScript(toolWithChild());
        startWithChild();
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void aPausedToolIsGoneToo()
    {
        tool().setScript(toolWithChild());
        startWithChild();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void aToolThatRefusesToEndIsKilled()
    {
        tool().setScript(toolWithChild("trap '' TERM INT HUP\n"));
        startWithChild();
        m_fixture->state.reset();
        QVERIFY(!isAlive(tool().processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(tool())));
    }

    void afterAKillOfTheProgramNoToolIsLeft()
    {
        tool().setScript("while :; do sleep 0.05; done");
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {u"--be-the-program"_s, tool().path()});
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        program.kill();
        QVERIFY(program.waitForFinished());
        for (const qint64 process : tool().processIdentifiers())
            QVERIFY(QTest::qWaitFor([&] { return !isAlive(process); }, 2000));
    }

    void destroyedInMidDownloadNothingGoesOn()
    {
        tool().setScript("echo '[download] 10% of 1MiB at 1MiB/s ETA 00:01'\n"
                         + tool().gate("never"));
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        state().startSingleDownload();
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 2);
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

    void aSuccessThatMeetsTheEndIsNotRecorded()
    {
        // The tool takes the request to end for a reason to succeed.
        tool().setScript("trap 'exit 0' TERM\necho '[Merger] x'\nwhile :; do sleep 0.01; done");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus(Status::Processing{}));
        m_fixture->state.reset();
        QVERIFY(!m_fixture->preferences->blob(u"quillon.history.v2"_s));
        QVERIFY(notifier().posted.isEmpty());
    }

private:
    void startWithChild()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus(Status::Processing{}));
        WAIT_FOR(childOf(tool()) > 0);
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
