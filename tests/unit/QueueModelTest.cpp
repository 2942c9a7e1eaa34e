// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueModel.h"
#include "FormatQualityPresenter.h"
#include "QueueControlsPresenter.h"
#include "StateFixture.h"
#include "StatusLook.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class QueueModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_model = std::make_unique<QueueModel>(state());
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get());
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_fixture.reset();
    }

    void theLabelCountsWaitingEntriesAlone()
    {
        QCOMPARE(m_model->downloadButtonLabel(), u"Nothing to download"_s);
        fill({u"a"_s});
        QCOMPARE(m_model->downloadButtonLabel(), u"Download 1 Video"_s);
        QVERIFY(m_model->canDownload());
        fill({u"a"_s, u"b"_s});
        QCOMPARE(m_model->downloadButtonLabel(), u"Download 2 Videos"_s);
        item(0)->status = Status::Done{u"/d/a.mp4"_s};
        QCOMPARE(m_model->downloadButtonLabel(), u"Download 1 Video"_s);
        item(1)->status = Status::Failed{u"no"_s};
        QCOMPARE(m_model->downloadButtonLabel(), u"Nothing to download"_s);
        QVERIFY(!m_model->canDownload());
        item(1)->status = Status::Waiting{};
        state().isQueueDownloading = true;
        QCOMPARE(m_model->downloadButtonLabel(), u"Downloading..."_s);
        QVERIFY(!m_model->canDownload());
    }

    void aRowTellsItsStatus()
    {
        fill({u"a"_s});
        QCOMPARE(text(0, QueueModel::TitleRole), u"a"_s);
        QCOMPARE(badge(0).kind, int(StatusKind::Waiting));
        item(0)->info = StateFixture::video(u"a"_s);
        QCOMPARE(text(0, QueueModel::TitleRole), u"Title a"_s);
        QCOMPARE(text(0, QueueModel::ThumbnailRole), u"http://127.0.0.1/a"_s);
        item(0)->status = Status::Downloading{0.425, u"2MiB/s"_s, u"--"_s};
        QCOMPARE(text(0, QueueModel::StatusLineRole), u"2MiB/s  ETA --"_s);
        QCOMPARE(badge(0).text, u"42%"_s);
        item(0)->status = Status::Failed{u"Download failed: no\n"_s};
        QCOMPARE(text(0, QueueModel::StatusLineRole), u"Download failed: no"_s);
        item(0)->status = Status::Done{u"/d/a b.mp4"_s};
        QCOMPARE(text(0, QueueModel::StatusLineRole), u"a b.mp4"_s);
        QVERIFY(m_model->data(m_model->index(0), QueueModel::CanRevealRole).toBool());
        item(0)->status = Status::Done{};
        QVERIFY(!m_model->data(m_model->index(0), QueueModel::CanRevealRole).toBool());
    }

    void aReportChangesItsRowAlone()
    {
        fill({u"a"_s, u"b"_s, u"c"_s});
        const QSignalSpy changes(m_model.get(), &QueueModel::dataChanged);
        const QSignalSpy inserted(m_model.get(), &QueueModel::rowsInserted);
        const QSignalSpy removed(m_model.get(), &QueueModel::rowsRemoved);
        const QSignalSpy resets(m_model.get(), &QueueModel::modelReset);
        item(1)->status = Status::Downloading{0.5};
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.first().at(0).toModelIndex().row(), 1);
        QCOMPARE(changes.first().at(1).toModelIndex().row(), 1);
        QCOMPARE(inserted.count() + removed.count() + resets.count(), 0);
    }

    void entriesComeAndGoWithoutAReset_data()
    {
        QTest::addColumn<QList<int>>("kept");
        QTest::addColumn<int>("added");
        QTest::newRow("one more") << QList{0, 1, 2, 3} << 1;
        QTest::newRow("first gone") << QList{1, 2, 3} << 0;
        QTest::newRow("last gone") << QList{0, 1, 2} << 0;
        QTest::newRow("every second gone") << QList{1, 3} << 0;
        QTest::newRow("a placeholder expands") << QList{0, 2, 3} << 5;
        QTest::newRow("all gone") << QList<int>() << 0;
        QTest::newRow("others instead") << QList<int>() << 2;
    }

    void entriesComeAndGoWithoutAReset()
    {
        QFETCH(QList<int>, kept);
        QFETCH(int, added);
        fill({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
        AppState::Queue next;
        for (const int index : kept)
            next.append(item(index));
        for (int number = 0; number < added; ++number)
            next.append(std::make_shared<DownloadItem>(u"new %1"_s.arg(number)));
        const QSignalSpy resets(m_model.get(), &QueueModel::modelReset);
        state().queue = next;
        QCOMPARE(resets.count(), 0);
        QCOMPARE(m_model->rowCount(), next.size());
        QCOMPARE(m_model->readyCount(), next.size());
        for (int row = 0; row < next.size(); ++row)
            QCOMPARE(text(row, QueueModel::TitleRole), next[row]->url);
        // And rows are still told apart.
        if (!next.isEmpty()) {
            next.last()->status = Status::Processing{};
            QCOMPARE(badge(int(next.size()) - 1).kind, int(StatusKind::Processing));
            QCOMPARE(m_model->readyCount(), next.size() - 1);
        }
    }

    void anotherOrderIsTakenAsItIs()
    {
        fill({u"a"_s, u"b"_s});
        state().queue = {item(1), item(0)};
        QCOMPARE(text(0, QueueModel::TitleRole), u"b"_s);
        QCOMPARE(m_model->readyCount(), 2);
    }

    void whatHasLeftIsNoLongerFollowed()
    {
        fill({u"a"_s, u"b"_s});
        const auto gone = item(0);
        m_model->remove(0);
        QCOMPARE(m_model->rowCount(), 1);
        gone->status = Status::Processing{};
        QCOMPARE(m_model->readyCount(), 1);
    }

    void onlyAFinishedFileIsRevealed()
    {
        fill({u"a"_s});
        m_model->reveal(0);
        item(0)->status = Status::Done{};
        m_model->reveal(0);
        QVERIFY(m_fixture->desktop.fileViewer->opened.isEmpty());
        const QString path = m_fixture->folder.filePath(u"a.mp4"_s);
        writeFile(path, "x");
        item(0)->status = Status::Done{path};
        m_model->reveal(0);
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{path});
    }

    void whatIsOutsideIsNothing()
    {
        m_model->reveal(0);
        m_model->remove(-1);
        QVERIFY(!m_model->data({}, QueueModel::TitleRole).isValid());
    }

    void theControlsFollowTheRun()
    {
        QueueControlsPresenter controls(state());
        QVERIFY(!controls.isRunning());
        state().isQueueDownloading = true;
        state().currentDownloadIndex = 2;
        state().totalDownloadCount = 5;
        QCOMPARE(controls.position(), u"2 / 5"_s);
        QCOMPARE(controls.pauseHelp(), u"Pause queue"_s);
        QCOMPARE(controls.pauseIcon(), u"pause.fill"_s);
        controls.togglePause();
        QCOMPARE(controls.pauseHelp(), u"Resume queue"_s);
        QCOMPARE(controls.pauseIcon(), u"play.fill"_s);
    }

    void theQueueOffersItsOwnQualities()
    {
        QueueFormatQualityPresenter model(state());
        QCOMPARE(model.qualities(),
                 QStringList({u"Best"_s, u"1080p"_s, u"720p"_s, u"480p"_s, u"360p"_s}));
        model.selectQuality(2);
        QCOMPARE(state().multiQuality().id, u"720p"_s);
        QVERIFY(state().selectedQuality() == QualityOption::best(MediaFormat::mp4));
        model.selectFormat(0); // the selected one again
        QCOMPARE(state().multiQuality().id, u"best"_s);
        model.selectFormat(1);
        QVERIFY(state().multiQuality() == QualityOption::best(MediaFormat::mp3));
        QCOMPARE(model.qualities(), QStringList{u"Best"_s});
        QCOMPARE(model.selectedQuality(), 0);
    }

private:
    AppState &state() { return *m_fixture->state; }
    std::shared_ptr<DownloadItem> item(qsizetype index) { return state().queue().at(index); }
    StatusLook badge(int row)
    {
        return m_model->data(m_model->index(row), QueueModel::BadgeRole).value<StatusLook>();
    }
    QString text(int row, int role) { return m_model->data(m_model->index(row), role).toString(); }

    void fill(const QStringList &urls)
    {
        AppState::Queue queue;
        for (const QString &url : urls)
            queue.append(std::make_shared<DownloadItem>(url));
        state().queue = queue;
    }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<QueueModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_MAIN(QueueModelTest)
#include "QueueModelTest.moc"
