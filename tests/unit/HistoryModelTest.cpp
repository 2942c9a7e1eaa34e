// SPDX-License-Identifier: GPL-3.0-or-later
#include "HistoryModel.h"
#include "StateFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

HistoryItem record(const QString &title, double secondsAgo = 300)
{
    return {.id = QUuid::createUuid(),
            .title = title,
            .thumbnailURL = u"http://127.0.0.1/a.png"_s,
            .url = u"https://example.org/watch?v="_s + title,
            .format = u"mp4"_s,
            .quality = u"1080p"_s,
            .savedPath = {},
            .date = {.seconds = ReferenceDate::now().seconds - secondsAgo}};
}

} // namespace

class HistoryModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        state().history = {record(u"b"_s), record(u"a"_s, 7200)};
        m_model = std::make_unique<HistoryModel>(state());
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get());
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_fixture.reset();
    }

    void recordsStandInTheirOrder() { QCOMPARE(titles(), QStringList({u"b"_s, u"a"_s})); }

    void aRowTellsDateFormatAndQuality()
    {
        QCOMPARE(text(0, HistoryModel::DateRole), u"5 min. ago"_s);
        QCOMPARE(text(1, HistoryModel::DateRole), u"2 hr. ago"_s);
        QCOMPARE(text(0, HistoryModel::DetailsRole), u"MP4 · 1080p"_s);
    }

    void onlyLowerCaseMp3ShowsANote()
    {
        for (const auto &[format, symbol] : {std::pair{u"mp3"_s, u"music.note"_s},
                                             {u"MP3"_s, u"play.rectangle.fill"_s},
                                             {u"mp4"_s, u"play.rectangle.fill"_s},
                                             {QString(), u"play.rectangle.fill"_s}}) {
            HistoryItem item = record(u"x"_s);
            item.format = format;
            state().history = {item};
            QCOMPARE(text(0, HistoryModel::PlaceholderRole), symbol);
        }
    }

    void aNewRecordIsOneInsertion()
    {
        const QSignalSpy resets(m_model.get(), &HistoryModel::modelReset);
        const QSignalSpy insertions(m_model.get(), &HistoryModel::rowsInserted);
        state().addToHistory(record(u"c"_s));
        QCOMPARE(titles(), QStringList({u"c"_s, u"b"_s, u"a"_s}));
        QCOMPARE(insertions.count(), 1);
        QCOMPARE(resets.count(), 0);
    }

    void atTheLimitTheOldestRowGoes()
    {
        state().historyLimit = 2;
        const QSignalSpy resets(m_model.get(), &HistoryModel::modelReset);
        state().addToHistory(record(u"c"_s));
        QCOMPARE(titles(), QStringList({u"c"_s, u"b"_s}));
        QCOMPARE(resets.count(), 0);
    }

    void anyOtherListIsTakenAsItIs_data()
    {
        QTest::addColumn<QStringList>("wanted");
        QTest::newRow("turned round") << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("others") << QStringList{u"x"_s, u"y"_s, u"z"_s};
        QTest::newRow("one gone from the front") << QStringList{u"a"_s};
        QTest::newRow("one gone from the end") << QStringList{u"b"_s};
        QTest::newRow("more at the end") << QStringList{u"b"_s, u"a"_s, u"z"_s};
        QTest::newRow("one between") << QStringList{u"b"_s, u"z"_s, u"a"_s};
        QTest::newRow("many in front") << QStringList(40, u"n"_s) + QStringList{u"b"_s, u"a"_s};
        QTest::newRow("the same") << QStringList{u"b"_s, u"a"_s};
        QTest::newRow("none") << QStringList();
    }

    void anyOtherListIsTakenAsItIs()
    {
        QFETCH(QStringList, wanted);
        const AppState::History known = state().history();
        AppState::History next;
        for (const QString &title : wanted)
            next.append(title == u"a" ? known[1] : title == u"b" ? known[0] : record(title));
        state().history = next;
        QCOMPARE(titles(), wanted);
        QCOMPARE(m_model->isEmpty(), wanted.isEmpty());
    }

    void clearAllSavesAlsoWhenThereIsNothing()
    {
        state().history = AppState::History();
        m_model->clearAll();
        m_fixture->restart();
        QCOMPARE(m_fixture->preferences->blob(u"quillon.history.v2"_s).value_or(QByteArray()),
                 QByteArray("[]"));
    }

    void clearAllEmptiesTheListAndTheDocument()
    {
        const QSignalSpy emptied(m_model.get(), &HistoryModel::isEmptyChanged);
        m_model->clearAll();
        QVERIFY(m_model->isEmpty());
        QCOMPARE(emptied.count(), 1);
        QCOMPARE(m_fixture->preferences->blob(u"quillon.history.v2"_s).value_or(QByteArray()),
                 QByteArray("[]"));
    }

    void aRowWithoutPathCannotBeRevealed()
    {
        HistoryItem kept = record(u"k"_s);
        kept.savedPath = m_fixture->folder.filePath(u"gone.mp4"_s);
        state().history = {kept, record(u"l"_s)};
        QVERIFY(m_model->data(m_model->index(0), HistoryModel::CanRevealRole).toBool());
        QVERIFY(!m_model->data(m_model->index(1), HistoryModel::CanRevealRole).toBool());
    }

    void revealingAMissingFileOpensItsFolder()
    {
        HistoryItem item = record(u"k"_s);
        item.savedPath = m_fixture->folder.filePath(u"k.mp4"_s);
        state().history = {item};
        m_model->reveal(0);
        QCOMPARE(m_fixture->desktop.fileViewer->opened, QStringList{m_fixture->folder.path()});
        writeFile(*item.savedPath, "x");
        m_model->reveal(0);
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{*item.savedPath});
    }

    void refetchingGoesToSingleModeAndFetches()
    {
        m_fixture->tool.respond(R"(print {"id":"i","title":"T"})");
        state().mode = AppMode::multi;
        state().fetchAsPlaylist = true;
        m_model->refetch(1);
        QVERIFY(state().mode() == AppMode::single);
        QCOMPARE(state().singleURL(), u"https://example.org/watch?v=a"_s);
        QTRY_VERIFY_WITH_TIMEOUT(state().singleInfo().has_value(), patience);
        QCOMPARE(m_fixture->tool.calls().first().last(), u"https://example.org/watch?v=a"_s);
    }

    void aRecordWithoutURLFetchesNothing()
    {
        HistoryItem item = record(u"k"_s);
        item.url = u" "_s;
        state().history = {item};
        state().singleURL = u"typed"_s;
        m_model->refetch(0);
        QVERIFY(!state().isFetching());
        QCOMPARE(state().singleURL(), u"typed"_s);
    }

    void aHundredThousandRecordsSurviveTheDocument()
    {
        state().history = AppState::History(100'000, record(u"r"_s));
        state().saveHistory();
        QCOMPARE(m_model->rowCount(), 100'000);
        m_tester.reset();
        m_model.reset();
        m_fixture->restart();
        QCOMPARE(state().history().size(), 100'000);
        m_model = std::make_unique<HistoryModel>(state());
        QCOMPARE(text(99'999, HistoryModel::TitleRole), u"r"_s);
        m_model->clearAll();
        QVERIFY(m_model->isEmpty());
    }

    void whatIsOutsideIsNothing()
    {
        m_model->reveal(2);
        m_model->reveal(-1);
        m_model->refetch(2);
        m_model->refetch(-1);
        QVERIFY(m_fixture->desktop.fileViewer->opened.isEmpty());
        QVERIFY(!state().isFetching());
    }

    void datesMoveOnByThemselves()
    {
        state().history = {record(u"new"_s, 1)};
        const QString before = text(0, HistoryModel::DateRole);
        const QSignalSpy told(m_model.get(), &HistoryModel::dataChanged);
        QTRY_VERIFY_WITH_TIMEOUT(told.count() > 0 && text(0, HistoryModel::DateRole) != before,
                                 patience);
    }

private:
    AppState &state() { return *m_fixture->state; }
    QString text(int row, int role) { return m_model->data(m_model->index(row), role).toString(); }
    QStringList titles()
    {
        QStringList found;
        for (int row = 0; row < m_model->rowCount(); ++row)
            found.append(text(row, HistoryModel::TitleRole));
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<HistoryModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_MAIN(HistoryModelTest)
#include "HistoryModelTest.moc"
