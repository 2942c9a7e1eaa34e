// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

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

class EndTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theToolAndItsChildAreGoneAfterAnOrderlyEnd()
    {
        StateFixture fixture;
        fixture.tool.setScript(toolWithChild());
        start(fixture);
        fixture.state.reset();
        QVERIFY(!isAlive(fixture.tool.processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(fixture.tool)));
    }

    void aPausedToolIsGoneToo()
    {
        StateFixture fixture;
        fixture.tool.setScript(toolWithChild());
        start(fixture);
        fixture.state->togglePause();
        WAIT_FOR(stateOf(fixture.tool.processIdentifiers().last()) == "T");
        fixture.state.reset();
        QVERIFY(!isAlive(fixture.tool.processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(fixture.tool)));
    }

    void aToolThatRefusesToEndIsKilled()
    {
        StateFixture fixture;
        fixture.tool.setScript(toolWithChild("trap '' TERM INT HUP\n"));
        start(fixture);
        fixture.state.reset();
        QVERIFY(!isAlive(fixture.tool.processIdentifiers().last()));
        QVERIFY(!isAlive(childOf(fixture.tool)));
    }

    void afterAKillOfTheProgramNoToolIsLeft()
    {
        FakeTool tool;
        tool.setScript("while :; do sleep 0.05; done");
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {u"--be-the-program"_s, tool.path()});
        WAIT_FOR(tool.processIdentifiers().size() == 2);
        program.kill();
        QVERIFY(program.waitForFinished());
        for (const qint64 process : tool.processIdentifiers())
            QVERIFY(QTest::qWaitFor([&] { return !isAlive(process); }, 2000));
    }

private:
    static void start(StateFixture &fixture)
    {
        fixture.state->singleInfo = StateFixture::video(u"a"_s);
        fixture.state->startSingleDownload();
        WAIT_FOR(fixture.state->downloadStatus() == DownloadUIStatus::processing());
        WAIT_FOR(childOf(fixture.tool) > 0);
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
