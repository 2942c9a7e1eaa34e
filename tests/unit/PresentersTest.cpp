// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"
#include "DownloadSectionModel.h"
#include "FormatQualityModel.h"
#include "ModeModel.h"
#include "SingleModeModel.h"
#include "StateFixture.h"
#include "StatusChipText.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class PresentersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // Modes

    void theModeSwitchHasASegmentForEachMode()
    {
        ModeModel model(state());
        QCOMPARE(ModeModel::labels(), QStringList({u"Single"_s, u"Multi"_s, u"Browse"_s}));
        const QSignalSpy spy(&model, &ModeModel::changed);
        model.setCurrentIndex(2);
        QVERIFY(state().mode() == AppMode::browse);
        QVERIFY(model.isBrowse() && !model.isSingle() && !model.isMulti());
        QCOMPARE(spy.count(), 1);
    }

    // Format and quality

    void everyQualityIsOfferedWhateverTheVideoHas()
    {
        VideoInfo video = StateFixture::video(u"a"_s);
        video.availableHeights = {360};
        state().singleInfo = video;
        QCOMPARE(SingleFormatQualityModel(state()).qualities(),
                 QStringList({u"Best"_s, u"4K"_s, u"1440p"_s, u"1080p"_s, u"720p"_s, u"480p"_s,
                              u"360p"_s}));
        QCOMPARE(FormatQualityModel::formats(),
                 QStringList({u"MP4 (Video)"_s, u"MP3 (Audio only)"_s}));
    }

    void mp3HidesTheQualitiesAndMp4ComesBackAtBest()
    {
        SingleFormatQualityModel model(state());
        model.selectQuality(4);
        QCOMPARE(state().selectedQuality().id, u"720p"_s);
        QCOMPARE(model.selectedQuality(), 4);
        model.selectFormat(1);
        QVERIFY(!model.showsQualities());
        QVERIFY(state().selectedQuality() == QualityOption::best(MediaFormat::mp3));
        QCOMPARE(model.selectedQuality(), -1);
        model.selectFormat(0);
        QVERIFY(model.showsQualities());
        QCOMPARE(model.selectedQuality(), 0);
    }

    void theSelectedFormatPressedAgainResetsTheQuality()
    {
        SingleFormatQualityModel model(state());
        model.selectQuality(4);
        model.selectFormat(0);
        QCOMPARE(state().selectedQuality().id, u"best"_s);
    }

    // The download section

    void theButtonCountsTheSelection()
    {
        const DownloadSectionModel section(state());
        QCOMPARE(section.buttonLabel(), u"Download"_s);
        QVERIFY(section.isDisabled());
        state().singleInfo = StateFixture::video(u"a"_s);
        QCOMPARE(section.buttonLabel(), u"Download"_s);
        QVERIFY(!section.isDisabled());
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        QCOMPARE(section.buttonLabel(), u"Download 0 Videos"_s);
        QVERIFY(section.isDisabled());
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s});
        QCOMPARE(section.buttonLabel(), u"Download 1 Video"_s);
        QVERIFY(!section.isDisabled());
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        QCOMPARE(section.buttonLabel(), u"Download 2 Videos"_s);
        state().isDownloading = true;
        QVERIFY(section.isDisabled());
    }

    void chips_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("isPaused");
        QTest::addColumn<QString>("chip");
        using Case = DownloadUIStatus::Case;
        const auto row = [](const char *name, Case kind, bool isPaused, const QString &chip) {
            QTest::newRow(name) << static_cast<int>(kind) << isPaused << chip;
        };
        row("idle", Case::idle, true, u"||"_s);
        row("done", Case::done, true, u"checkmark.circle.fill|Complete|green"_s);
        row("failed", Case::failed, true, u"xmark.circle.fill|Failed|red"_s);
        row("paused", Case::downloading, true, u"pause.circle.fill|Paused|orange"_s);
        row("downloading", Case::downloading, false,
            u"arrow.down.circle.fill|Downloading|accent"_s);
        row("processing", Case::processing, true, u"gearshape.fill|Processing|orange"_s);
    }

    void chips()
    {
        QFETCH(int, kind);
        QFETCH(bool, isPaused);
        const QList<DownloadUIStatus> statuses{
            DownloadUIStatus::idle(), DownloadUIStatus::downloading(),
            DownloadUIStatus::processing(), DownloadUIStatus::done({}),
            DownloadUIStatus::failed({})};
        const StatusChipText chip = statusChipText(statuses[kind], isPaused);
        QTEST(chip.icon + u'|' + chip.text + u'|' + chip.tone, "chip");
    }

    void unknownSpeedAndTimeAreNotShown()
    {
        const DownloadSectionModel section(state());
        state().downloadETA = u"--"_s;
        QCOMPARE(section.remaining(), QString());
        state().downloadETA = QString();
        QCOMPARE(section.remaining(), QString());
        state().downloadETA = u"00:42"_s;
        QCOMPARE(section.remaining(), u"ETA 00:42"_s);
        QCOMPARE(section.description(), u"ETA 00:42"_s);
        state().downloadSpeed = u"1MiB/s"_s;
        QCOMPARE(section.description(), u"1MiB/s, ETA 00:42"_s);
    }

    void percentagesAreCutOff()
    {
        const DownloadSectionModel section(state());
        state().downloadProgress = 0.999;
        QCOMPARE(section.percent(), u"99%"_s);
        state().downloadProgress = 1.0;
        QCOMPARE(section.percent(), u"100%"_s);
    }

    void aRunOfSeveralShowsItsLine()
    {
        const DownloadSectionModel section(state());
        state().totalDownloadCount = 1;
        QVERIFY(!section.showsRunLine());
        state().totalDownloadCount = 12;
        state().currentDownloadIndex = 3;
        QVERIFY(section.showsRunLine());
        QCOMPARE(section.runLineCount(), u"3 / 12"_s);
    }

    void pausingBetweenTwoItemsStillShowsPaused()
    {
        DownloadSectionModel section(state());
        state().downloadStatus = DownloadUIStatus::downloading();
        QCOMPARE(section.pauseHelp(), u"Pause download"_s);
        section.togglePause();
        QVERIFY(state().isPaused());
        QCOMPARE(section.chipText(), u"Paused"_s);
        QCOMPARE(section.pauseIcon(), u"play.fill"_s);
        QCOMPARE(section.pauseHelp(), u"Resume download"_s);
    }

    void afterDoneTheButtonResetsFirst()
    {
        DownloadSectionModel section(state());
        state().singleInfo = StateFixture::video(u"a"_s);
        for (const bool wasDone : {true, false}) {
            state().downloadStatus =
                wasDone ? DownloadUIStatus::done(u"/d"_s) : DownloadUIStatus::failed(u"no"_s);
            QList<DownloadUIStatus::Case> kinds;
            const auto watch = connect(&state(), &AppState::downloadStatusChanged, &state(),
                                       [&] { kinds.append(state().downloadStatus().kind()); });
            section.download();
            disconnect(watch);
            QCOMPARE(kinds.contains(DownloadUIStatus::Case::idle), wasDone);
            WAIT_FOR(m_fixture->hasEnded());
        }
    }

    void showInFinderRevealsTheRunsFolder()
    {
        DownloadSectionModel section(state());
        QVERIFY(!section.isDone());
        state().downloadStatus = DownloadUIStatus::done(m_fixture->folder.path());
        QVERIFY(section.isDone());
        section.showInFinder();
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{m_fixture->folder.path()});
    }

    // Single mode and colours

    void theThreeSectionsDoNotArbitrate()
    {
        const SingleModeModel model(state());
        QVERIFY(!model.hasError() && !model.isFetching() && !model.hasInfo());
        state().fetchError = u"no"_s;
        state().isFetching = true;
        state().singleInfo = StateFixture::playlist({u"a"_s});
        QVERIFY(model.hasError() && model.isFetching() && model.hasInfo());
        QCOMPARE(model.error(), u"no"_s);
    }

    void anyAccentIsMadeReadable()
    {
        QCOMPARE(qRound(contrastRatio(Qt::black, Qt::white)), 21);
        for (const QColor &accent : {QColor(Qt::yellow), QColor(Qt::blue), QColor(Qt::black),
                                     QColor(Qt::white), QColor(Qt::gray)}) {
            for (const char *surface : {"#ffffff", "#ececee", "#2a2a2d"}) {
                const QColor background(QLatin1String{surface});
                QVERIFY(contrastRatio(readableOn(accent, background), background) >= 4.5);
            }
        }
    }

private:
    AppState &state() { return *m_fixture->state; }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_GUILESS_MAIN(PresentersTest)
#include "PresentersTest.moc"
