// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateFixture.h"

#include <QCoreApplication>

/// Updates that end before their time.
class UpdateEndTest : public UpdateFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { UpdateFixture::init(); }
    void cleanup() { UpdateFixture::cleanup(); }

    void aCancelledUpdateLeavesNothing_data() { steps(); }
    void aCancelledUpdateLeavesNothing()
    {
        QFETCH(QString, step);
        prepareOld();
        holdAt(step);
        begin();
        QVERIFY(waitForStep(step));
        m_update->cancel();
        QVERIFY(waitForEnd());
        QVERIFY(!m_outcome->isSuccess());
        QCOMPARE(m_outcome->error, QString());
        checkOld();
    }

    void aClosedWindowLeavesNothing_data() { steps(); }
    void aClosedWindowLeavesNothing()
    {
        QFETCH(QString, step);
        prepareOld();
        holdAt(step);
        begin();
        QVERIFY(waitForStep(step));
        m_update.reset();
        checkOld();
    }

    void aKilledUpdateLeavesTheOldTool_data() { steps(); }
    void aKilledUpdateLeavesTheOldTool()
    {
        QFETCH(QString, step);
        prepareOld();
        holdAt(step);
        writeFile(m_home->filePath(u"key"_s), m_signer->key);
        QProcess victim;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, m_environment[u"PATH"_s]);
        environment.insert(u"HOME"_s, m_home->path());
        victim.setProcessEnvironment(environment);
        victim.start(
            QCoreApplication::applicationFilePath(),
            {u"--update"_s, m_server->url().toString(), m_home->filePath(u"key"_s), own()});
        QVERIFY(victim.waitForStarted());
        QVERIFY(waitForStep(step));
        victim.kill();
        QVERIFY(QTest::qWaitFor([&] { return victim.state() == QProcess::NotRunning; }, 30000));
        QCOMPARE(contentOf(own()), m_old);
        QVERIFY(QFileInfo::exists(m_home->filePath(u".local/bin/.quillon-update"_s)));
        ToolFolder::clearLeftovers(own());
        checkOld();
    }

private:
    static void steps()
    {
        QTest::addColumn<QString>("step");
        for (const char *const step : {"sums", "check", "download", "packing", "trial"})
            QTest::newRow(step) << QString::fromLatin1(step);
    }
    /// Makes an update stay at this step for good.
    void holdAt(const QString &step)
    {
        const QByteArray mark = "touch '" + m_home->filePath(u"held"_s).toUtf8() + "'\n";
        if (step == u"sums")
            answer("SHA2-256SUMS", {.isSilent = true});
        else if (step == u"download")
            answer("yt-dlp", {.body = QByteArray(5000, 'x'), .told = 9000, .isHeld = true});
        else if (step == u"check")
            stub(u"gpgv"_s, mark + "exec sleep 1000");
        else if (step == u"packing")
            stub(u"python3"_s,
                 "case \"$*\" in *pack_tool.py*) " + mark
                     + "exec sleep 1000;; esac\n"
                       "exec /usr/bin/python3 \"$@\"");
        else
            offer(*m_server, *m_signer,
                  zippedTool("import os, time\nopen(os.environ['HOME'] + '/held', 'w').close()\n"
                             "time.sleep(1000)\n"));
    }
    bool waitForStep(const QString &step)
    {
        const QString request = step == u"sums" ? u"/SHA2-256SUMS"_s : u"/yt-dlp"_s;
        return QTest::qWaitFor(
            [&] {
                return step == u"sums" || step == u"download"
                    ? m_server->requests.contains(request)
                    : QFile::exists(m_home->filePath(u"held"_s));
            },
            60000);
    }
};

/// Called with "--update ADDRESS KEY-FILE PATH" it makes one update, to be killed in it.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) != u"--update") {
        UpdateEndTest test;
        return QTest::qExec(&test, argc, argv);
    }
    const QString path = arguments.value(4);
    ToolUpdate update({.folder = QUrl(arguments.value(2)), .key = contentOf(arguments.value(3))},
                      {.searchPaths = {path},
                       .ownPath = path,
                       .environment = {{u"PATH"_s, qEnvironmentVariable("PATH")},
                                       {u"HOME"_s, qEnvironmentVariable("HOME")}}},
                      {}, {.onProgress = [](const auto &) {}, .onEnd = [](const auto &) {}});
    return QCoreApplication::exec();
}

#include "UpdateEndTest.moc"
