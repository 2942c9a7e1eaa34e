// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolJudge.h"
#include "FakeTool.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The judge and a tool that does what a test says, as real processes.
class ToolJudgeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tool = std::make_unique<FakeTool>();
        m_reports.clear();
        m_count = 0;
    }
    void cleanup()
    {
        m_judge.reset();
        m_tool.reset();
    }

    void aToolTellsItsVersionInOneRun()
    {
        m_tool->respond("print 2026.08.19");
        const ToolReport report = judged();
        QCOMPARE(report.path, m_tool->path());
        QCOMPARE(report.version.text, u"2026.08.19"_s);
        QCOMPARE(report.failure, StartFailure::none);
        QCOMPARE(m_tool->calls(), QList<QStringList>{{u"--version"_s}});
    }

    void theToolRunsInTheUsualEnvironment()
    {
        m_tool->respond("print 2026.08.19");
        judged();
        QCOMPARE(m_tool->environment(), QStringList({u"HOME=/nowhere"_s, u"PATH=/usr/bin:/bin"_s}));
    }

    void aMissingToolIsNotRun()
    {
        QFile::remove(m_tool->path());
        QVERIFY(!judged().exists);
    }

    void aFolderIsNotRun()
    {
        QFile::remove(m_tool->path());
        QVERIFY(QDir().mkpath(m_tool->path()));
        QCOMPARE(judged().failure, StartFailure::isFolder);
    }

    void aNonExecutableFileIsNotRun()
    {
        QFile::setPermissions(m_tool->path(), QFile::ReadOwner);
        QCOMPARE(judged().failure, StartFailure::notExecutable);
    }

    void aMissingPythonIsFound()
    {
        const QTemporaryDir programs; // env alone
        QVERIFY(QFile::link(u"/usr/bin/env"_s, programs.filePath(u"env"_s)));
        environment[u"PATH"_s] = programs.path();
        replaceBy("#!/nowhere/python3\nprint('2026.08.19')\n");
        QCOMPARE(judged().failure, StartFailure::noPython);
        replaceBy("#!/usr/bin/env python3\nprint('2026.08.19')\n");
        QCOMPARE(again().failure, StartFailure::noPython);
        environment[u"PATH"_s] = u"/usr/bin:/bin"_s;
    }

    void aMissingInterpreterIsAnotherFailure()
    {
        replaceBy("#!/nowhere/venv/bin/python\nprint('2026.08.19')\n");
        const ToolReport report = judged();
        QCOMPARE(report.failure, StartFailure::other);
        QVERIFY2(report.failureText.contains(u"No such file"), qPrintable(report.failureText));
    }

    void aPipeIsNotRead()
    {
        QFile::remove(m_tool->path());
        QVERIFY(mkfifo(m_tool->path().toUtf8().constData(), 0700) == 0);
        QCOMPARE(judged().failure, StartFailure::notExecutable);
    }

    void aPythonThatIsTooOldIsFound()
    {
        m_tool->respond("fail ImportError: You are using an unsupported version of Python. Only "
                        "Python versions 3.10 and above are supported by yt-dlp");
        QCOMPARE(judged().failure, StartFailure::oldPython);
    }

    void otherFailuresUseTheToolsLastWords()
    {
        m_tool->respond("stderr bytes Traceback:\\n  more\\nModuleNotFoundError: No module\\n\\n\n"
                        "exit 3");
        const ToolReport report = judged();
        QCOMPARE(report.failure, StartFailure::other);
        QCOMPARE(report.failureText, u"ModuleNotFoundError: No module"_s);
    }

    void aNonProgramFailsInTheSystemsWords()
    {
        replaceBy("\x7f"
                  "ELF that is none");
        const ToolReport report = judged();
        QCOMPARE(report.failure, StartFailure::other);
        QVERIFY(!report.failureText.isEmpty());
    }

    void aToolThatHangsIsEnded()
    {
        m_tool->respond("wait never");
        QCOMPARE(judged(200ms).failure, StartFailure::noAnswer);
        QVERIFY(!isAlive(m_tool->processIdentifiers().first()));
    }

    void aToolThatFloodsIsEnded()
    {
        m_tool->respond("forever print 2026.08.19");
        const ToolReport report = judged();
        QCOMPARE(report.failure, StartFailure::none);
        QVERIFY(!report.version.isDated());
        QVERIFY(!isAlive(m_tool->processIdentifiers().first()));
    }

    void aToolThatNeverStopsComplainingIsEnded()
    {
        m_tool->respond("forever stderr print trouble");
        QCOMPARE(judged().failureText, u"trouble"_s);
    }

    void nonsenseIsAVersionOfUnknownAge()
    {
        m_tool->respond("print a b\n"
                        "print c");
        const ToolReport report = judged();
        QCOMPARE(report.failure, StartFailure::none);
        QVERIFY(!report.version.isDated());
    }

    void anUnchangedToolIsNotAskedAgain()
    {
        m_tool->respond("print 2026.08.19");
        judged();
        m_judge->look();
        m_judge->lookAgain(); // handled behind the look
        QVERIFY(waitForCount(2));
        QCOMPARE(m_tool->calls().size(), 2);
    }

    void aToolThatHasChangedIsAskedAgain()
    {
        m_tool->respond("print 2026.08.19");
        judged();
        m_tool->respond("print 2026.09.01");
        m_judge->look();
        QVERIFY(waitForCount(2));
        QCOMPARE(last().version.text, u"2026.09.01"_s);
    }

    void changedPermissionsAreAReasonToAskAgain()
    {
        m_tool->respond("print 2026.08.19");
        judged();
        QFile::setPermissions(m_tool->path(), QFile::ReadOwner);
        m_judge->look();
        QVERIFY(waitForCount(2));
        QCOMPARE(last().failure, StartFailure::notExecutable);
    }

    void aToolThatComesBeforeIsFound()
    {
        const FakeTool earlier;
        QFile::rename(earlier.path(), earlier.file(u"aside"_s));
        m_tool->respond("print 2026.08.19");
        m_judge =
            std::make_unique<ToolJudge>(ToolPlaces{.searchPaths = {earlier.path(), m_tool->path()},
                                                   .ownPath = m_tool->path(),
                                                   .environment = environment},
                                        handler());
        m_judge->look();
        QVERIFY(waitForCount(1));
        QFile::rename(earlier.file(u"aside"_s), earlier.path());
        m_judge->look();
        QVERIFY(waitForCount(2));
        QCOMPARE(last().path, earlier.path());
        QCOMPARE(last().obstacle, Obstacle::comesFirst);
    }

    void aLookDuringARunWaits()
    {
        m_tool->respond("wait go\n"
                        "print 2026.08.19");
        make(10s);
        m_judge->look();
        m_judge->lookAgain();
        m_judge->look();
        QVERIFY(QTest::qWaitFor([this] { return !m_tool->processIdentifiers().isEmpty(); }, 30000));
        QCOMPARE(m_tool->processIdentifiers().size(), 1);
        m_tool->open("go");
        QVERIFY(waitForCount(1));
        m_tool->open("go");
        QVERIFY(waitForCount(2));
        QCOMPARE(m_tool->calls().size(), 2);
    }

    void closingEndsTheRunWithoutAWord()
    {
        m_tool->respond("wait never");
        make(10s);
        m_judge->look();
        QVERIFY(QTest::qWaitFor([this] { return !m_tool->processIdentifiers().isEmpty(); }, 30000));
        m_judge.reset();
        QVERIFY(!isAlive(m_tool->processIdentifiers().first()));
        QCOMPARE(m_count, 0);
    }

private:
    ToolJudge::Handler handler()
    {
        return [this](const ToolReport &report) {
            const std::scoped_lock lock(m_mutex);
            m_reports.append(report);
            ++m_count;
        };
    }
    void make(std::chrono::milliseconds patience)
    {
        m_judge = std::make_unique<ToolJudge>(ToolPlaces{.searchPaths = {m_tool->path()},
                                                         .ownPath = u"/nowhere/yt-dlp"_s,
                                                         .environment = environment},
                                              handler(), patience);
    }
    bool waitForCount(int count)
    {
        return QTest::qWaitFor([&] { return m_count >= count; }, 30000);
    }
    ToolReport last()
    {
        const std::scoped_lock lock(m_mutex);
        return m_reports.isEmpty() ? ToolReport() : m_reports.last();
    }
    ToolReport judged(std::chrono::milliseconds patience = 10s)
    {
        make(patience);
        m_judge->look();
        waitForCount(1);
        return last();
    }
    ToolReport again()
    {
        const int count = m_count;
        m_judge->look();
        waitForCount(count + 1);
        return last();
    }
    void replaceBy(const QByteArray &content)
    {
        QFile::remove(m_tool->path());
        writeFile(m_tool->path(), content);
        QFile::setPermissions(m_tool->path(), QFile::ReadOwner | QFile::ExeOwner);
    }

    QMap<QString, QString> environment{{u"PATH"_s, u"/usr/bin:/bin"_s}, {u"HOME"_s, u"/nowhere"_s}};
    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<ToolJudge> m_judge;
    std::mutex m_mutex;
    QList<ToolReport> m_reports;
    std::atomic<int> m_count = 0;
};

QTEST_GUILESS_MAIN(ToolJudgeTest)
#include "ToolJudgeTest.moc"
