// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"
#include "DownloadSectionPresenter.h"
#include "FormatQualityPresenter.h"
#include "ModePresenter.h"
#include "SingleModePresenter.h"
#include "StateFixture.h"
#include "StatusLook.h"

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

    void everyModeHasItsSegment()
    {
        ModePresenter model(state());
        QCOMPARE(ModePresenter::labels(), QStringList({u"Single"_s, u"Multi"_s, u"Browse"_s}));
        const QSignalSpy spy(&model, &ModePresenter::changed);
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
        QCOMPARE(SingleFormatQualityPresenter(state()).qualities(),
                 QStringList({u"Best"_s, u"4K"_s, u"1440p"_s, u"1080p"_s, u"720p"_s, u"480p"_s,
                              u"360p"_s}));
        QCOMPARE(FormatQualityPresenter::formats(),
                 QStringList({u"MP4 (Video)"_s, u"MP3 (Audio only)"_s}));
    }

    void returningFromMp3SelectsTheBestMp4()
    {
        SingleFormatQualityPresenter model(state());
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
        SingleFormatQualityPresenter model(state());
        model.selectQuality(4);
        model.selectFormat(0);
        QCOMPARE(state().selectedQuality().id, u"best"_s);
    }

    // The download section

    void theButtonCountsTheSelection()
    {
        const DownloadSectionPresenter section(state());
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
        QTest::addColumn<QVariant>("status");
        QTest::addColumn<bool>("isPaused");
        QTest::addColumn<QString>("chip");
        const auto row = [](const char *name, const DownloadUIStatus &status, bool isPaused,
                            const QString &chip) {
            QTest::newRow(name) << QVariant::fromValue(status) << isPaused << chip;
        };
        row("idle", Status::Idle{}, true, u"||"_s);
        row("done", Status::Done{}, true, u"checkmark.circle.fill|Complete|green"_s);
        row("failed", Status::Failed{}, true, u"xmark.circle.fill|Failed|red"_s);
        row("paused", Status::Running{}, true, u"pause.circle.fill|Paused|orange"_s);
        row("downloading", Status::Running{}, false,
            u"arrow.down.circle.fill|Downloading|accent"_s);
        row("processing", Status::Processing{}, true, u"gearshape.fill|Processing|orange"_s);
    }

    void chips()
    {
        QFETCH(QVariant, status);
        QFETCH(bool, isPaused);
        const StatusLook chip = chipLook(status.value<DownloadUIStatus>(), isPaused);
        const QString tone = chip.text.isEmpty() ? QString() : chip.tone;
        QTEST(chip.symbol + u'|' + chip.text + u'|' + tone, "chip");
    }

    void unknownSpeedAndTimeAreNotShown()
    {
        const DownloadSectionPresenter section(state());
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
        const DownloadSectionPresenter section(state());
        state().downloadProgress = 0.999;
        QCOMPARE(section.percent(), u"99%"_s);
        state().downloadProgress = 1.0;
        QCOMPARE(section.percent(), u"100%"_s);
    }

    void aRunOfSeveralShowsItsLine()
    {
        const DownloadSectionPresenter section(state());
        state().totalDownloadCount = 1;
        QVERIFY(!section.showsRunLine());
        state().totalDownloadCount = 12;
        state().currentDownloadIndex = 3;
        QVERIFY(section.showsRunLine());
        QCOMPARE(section.runLineCount(), u"3 / 12"_s);
    }

    void pausingBetweenTwoItemsStillShowsPaused()
    {
        DownloadSectionPresenter section(state());
        state().downloadStatus = Status::Running{};
        QCOMPARE(section.pauseHelp(), u"Pause download"_s);
        section.togglePause();
        QVERIFY(state().isPaused());
        QCOMPARE(section.chip().text, u"Paused"_s);
        QCOMPARE(section.pauseIcon(), u"play.fill"_s);
        QCOMPARE(section.pauseHelp(), u"Resume download"_s);
    }

    void afterDoneTheButtonResetsFirst()
    {
        DownloadSectionPresenter section(state());
        state().singleInfo = StateFixture::video(u"a"_s);
        for (const bool wasDone : {true, false}) {
            state().downloadStatus = wasDone ? DownloadUIStatus(Status::Done{u"/d"_s})
                                             : DownloadUIStatus(Status::Failed{u"no"_s});
            QList<StatusKind::Value> kinds;
            const auto watch = connect(&state(), &AppState::downloadStatusChanged, &state(),
                                       [&] { kinds.append(kindOf(state().downloadStatus())); });
            section.download();
            disconnect(watch);
            QCOMPARE(kinds.contains(StatusKind::Idle), wasDone);
            QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        }
    }

    void showInFinderRevealsTheRunsFolder()
    {
        DownloadSectionPresenter section(state());
        QVERIFY(!section.isDone());
        state().downloadStatus = Status::Done{m_fixture->folder.path()};
        QVERIFY(section.isDone());
        section.reveal();
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{m_fixture->folder.path()});
    }

    // Single mode and colours

    void theThreeSectionsDoNotArbitrate()
    {
        const SingleModePresenter model(state());
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
