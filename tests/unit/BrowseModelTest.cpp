// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseModel.h"
#include "StateFixture.h"
#include "StatusLook.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class BrowseModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_model = std::make_unique<BrowseModel>(state());
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get());
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_fixture.reset();
    }

    void theAreaIsTheFirstCaseThatHolds()
    {
        QCOMPARE(m_model->area(), BrowseModel::Area::Empty);
        fill({u"a"_s});
        QCOMPARE(m_model->area(), BrowseModel::Area::Results);
        state().browseSearchError = u"No network\n"_s;
        QCOMPARE(m_model->area(), BrowseModel::Area::Failed);
        QCOMPARE(m_model->errorText(), u"No network"_s);
        const QSignalSpy spy(m_model.get(), &BrowseModel::areaChanged);
        state().isBrowseSearching = true;
        QCOMPARE(m_model->area(), BrowseModel::Area::Searching);
        QCOMPARE(spy.count(), 1);
    }

    void theCountKnowsNoSingular()
    {
        fill({u"a"_s});
        QCOMPARE(m_model->countText(), u"1 results"_s);
        fill({u"a"_s, u"b"_s});
        QCOMPARE(m_model->countText(), u"2 results"_s);
    }

    void aRowTellsItsResult()
    {
        fill({u"a"_s, u"b"_s});
        QCOMPARE(text(1, BrowseModel::TitleRole), u"Title b"_s);
        QCOMPARE(text(1, BrowseModel::UploaderRole), u"Someone"_s);
        QCOMPARE(text(1, BrowseModel::DurationRole), u"1:30"_s);
        QCOMPARE(text(1, BrowseModel::ThumbnailRole), u"http://127.0.0.1/b"_s);
        AppState::Results results = state().browseResults();
        results[0].duration.reset();
        state().browseResults = results;
        QCOMPARE(text(0, BrowseModel::DurationRole), QString());
    }

    void everyRowOfThePlayingIdentifierIsMarked()
    {
        fill({u"a"_s, u"b"_s, u"a"_s});
        const QSignalSpy spy(m_model.get(), &BrowseModel::dataChanged);
        state().nowPlaying = state().browseResults()[0];
        QCOMPARE(spy.count(), 1);
        QVERIFY(data(0, BrowseModel::IsNowPlayingRole).toBool());
        QVERIFY(!data(1, BrowseModel::IsNowPlayingRole).toBool());
        QVERIFY(data(2, BrowseModel::IsNowPlayingRole).toBool());
    }

    void theTwoDownloadsOfARowAreApart()
    {
        fill({u"a"_s});
        const StatusLook idle = look(0, BrowseModel::AudioRole);
        QCOMPARE(look(0, BrowseModel::VideoRole).kind, int(StatusKind::Idle));
        state().browseDownloadStatuses =
            AppState::DownloadStatuses{{u"a_mp4"_s, Status::Done{u"/x"_s}}};
        state().browseDownloadProgress = AppState::DownloadFractions{{u"a_mp4"_s, 0.5}};
        QCOMPARE(look(0, BrowseModel::VideoRole).kind, int(StatusKind::Done));
        QCOMPARE(look(0, BrowseModel::VideoRole).progress, 0.5);
        QCOMPARE(look(0, BrowseModel::AudioRole), idle);
        QCOMPARE(idle.progress, 0.0);
    }

    void aSpokenPercentageIsCutOff()
    {
        fill({u"a"_s});
        state().browseDownloadStatuses =
            AppState::DownloadStatuses{{u"a_mp4"_s, DownloadStatus(Status::Downloading{0.996})}};
        state().browseDownloadProgress = AppState::DownloadFractions{{u"a_mp4"_s, 0.996}};
        QCOMPARE(look(0, BrowseModel::VideoRole).text, u"Downloading 99%"_s);
    }

    void whatFailedSaysWhy()
    {
        fill({u"a"_s});
        state().browseDownloadStatuses = AppState::DownloadStatuses{
            {u"a_mp3"_s, DownloadStatus(Status::Failed{u"No space\n"_s})},
            {u"a_mp4"_s, DownloadStatus(Status::Done{u"/x"_s})}};
        QCOMPARE(look(0, BrowseModel::AudioRole).text, u"Failed, press to try again: No space"_s);
        QCOMPARE(look(0, BrowseModel::VideoRole).text, u"Done"_s);
    }

    void rowsThatAreNotThereDoNothing()
    {
        fill({u"a"_s});
        m_model->play(1);
        m_model->download(-1, true);
        QVERIFY(!state().nowPlaying());
        QVERIFY(state().browseDownloadStatuses().isEmpty());
    }

private:
    AppState &state() { return *m_fixture->state; }

    void fill(const QStringList &ids)
    {
        AppState::Results results;
        for (const QString &id : ids)
            results.append({.id = id,
                            .title = u"Title "_s + id,
                            .uploader = u"Someone"_s,
                            .duration = 90,
                            .thumbnailURL = u"http://127.0.0.1/"_s + id,
                            .videoURL = QString()});
        state().browseResults = results;
    }

    QVariant data(int row, int role) { return m_model->data(m_model->index(row), role); }
    StatusLook look(int row, int role) { return data(row, role).value<StatusLook>(); }
    QString text(int row, int role) { return data(row, role).toString(); }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<BrowseModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_GUILESS_MAIN(BrowseModelTest)
#include "BrowseModelTest.moc"
