// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlaylistModel.h"
#include "StateFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class PlaylistModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_model = std::make_unique<PlaylistModel>(state());
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get());
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_fixture.reset();
    }

    void entriesStandInTheirOrder()
    {
        m_model->setInfo(StateFixture::playlist({u"c"_s, u"a"_s, u"b"_s}));
        QCOMPARE(m_model->rowCount(), 3);
        QCOMPARE(text(0, PlaylistModel::TitleRole), u"Title c"_s);
        QCOMPARE(text(2, PlaylistModel::TitleRole), u"Title b"_s);
        QCOMPARE(text(1, PlaylistModel::ThumbnailRole), u"http://127.0.0.1/a"_s);
    }

    void theHeadingFallsBackToTheTitle()
    {
        VideoInfo info = StateFixture::playlist({u"a"_s});
        m_model->setInfo(info);
        QCOMPARE(m_model->heading(), u"Playlist (1 videos)"_s);
        info.playlistTitle = u"Evenings"_s;
        m_model->setInfo(info);
        QCOMPARE(m_model->heading(), u"Evenings"_s);
        info.playlistTitle = QString();
        m_model->setInfo(info);
        QCOMPARE(m_model->heading(), QString());
    }

    void anEmptyPlaylistReadsZeroAndSelectsNothing()
    {
        m_model->setInfo(StateFixture::playlist({}));
        QCOMPARE(m_model->countLine(), u"0 of 0 selected"_s);
        m_model->selectAll();
        QVERIFY(state().selectedPlaylistItems().isEmpty());
        QCOMPARE(m_model->countLine(), u"0 of 0 selected"_s);
    }

    void noneThenAllSelectsEveryEntryAgain()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        m_model->selectAll();
        QCOMPARE(m_model->countLine(), u"3 of 3 selected"_s);
        m_model->selectNone();
        QCOMPARE(m_model->countLine(), u"0 of 3 selected"_s);
        m_model->selectAll();
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"a"_s, u"b"_s, u"c"_s}));
    }

    void togglingOneEntryChangesOnlyThatOne()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        m_model->selectAll();
        m_model->toggle(1);
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"a"_s, u"c"_s}));
        QVERIFY(isSelected(0) && !isSelected(1) && isSelected(2));
        m_model->toggle(1);
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"a"_s, u"b"_s, u"c"_s}));
    }

    void entriesOfOneIdentifierShareTheirSelection()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"a"_s, u"c"_s, u"d"_s}));
        m_model->selectAll();
        QCOMPARE(m_model->countLine(), u"4 of 5 selected"_s);
        m_model->toggle(2);
        QVERIFY(!isSelected(0) && !isSelected(2));
        QCOMPARE(m_model->countLine(), u"3 of 5 selected"_s);
    }

    void theCountIncludesUnknownIdentifiers()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s}));
        state().selectedPlaylistItems = QSet({u"a"_s, u"x"_s, u"y"_s});
        QCOMPARE(m_model->countLine(), u"3 of 1 selected"_s);
    }

    void numbersAreWrittenWithoutSeparators()
    {
        QStringList ids;
        for (int number = 0; number < 1234; ++number)
            ids.append(QString::number(number));
        m_model->setInfo(StateFixture::playlist(ids));
        m_model->selectAll();
        QCOMPARE(m_model->countLine(), u"1234 of 1234 selected"_s);
    }

    void aChangedSelectionNotifiesOnceForAllRows()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        const QSignalSpy spy(m_model.get(), &PlaylistModel::dataChanged);
        m_model->selectAll();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(0).toModelIndex().row(), 0);
        QCOMPARE(spy.first().at(1).toModelIndex().row(), 2);
    }

    void whatIsOutsideIsNothing()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s}));
        m_model->toggle(-1);
        m_model->toggle(1);
        QVERIFY(state().selectedPlaylistItems().isEmpty());
        QVERIFY(!m_model->data({}, PlaylistModel::TitleRole).isValid());
    }

    void aFilterIsOfferedFromThirteenEntriesOn()
    {
        QStringList ids;
        for (int number = 1; number <= 12; ++number)
            ids.append(QString::number(number));
        m_model->setInfo(StateFixture::playlist(ids));
        QVERIFY(!m_model->canFilter());
        m_model->setInfo(StateFixture::playlist(ids + QStringList(u"13"_s)));
        QVERIFY(m_model->canFilter());
    }

    void aFilterShowsMatchingTitles()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"ab"_s, u"c"_s}));
        m_model->setFilter(u" TITLE A "_s);
        QCOMPARE(m_model->rowCount(), 2);
        QCOMPARE(text(1, PlaylistModel::TitleRole), u"Title ab"_s);
        m_model->setFilter(u"nothing"_s);
        QCOMPARE(m_model->rowCount(), 0);
        m_model->setFilter(QString());
        QCOMPARE(m_model->rowCount(), 3);
    }

    void aFilterKeepsTheRowsThatThereAre()
    {
        m_model->setInfo(StateFixture::playlist({u"ab"_s, u"b"_s, u"ac"_s, u"bc"_s}));
        const QSignalSpy resets(m_model.get(), &PlaylistModel::modelReset);
        const QSignalSpy changes(m_model.get(), &PlaylistModel::dataChanged);
        m_model->setFilter(u"title a"_s);
        QCOMPARE(changes.count(), 1); // "ac" is now the second
        QCOMPARE(changes.first().at(0).toModelIndex().row(), 1);
        QCOMPARE(changes.first().at(1).toModelIndex().row(), 1);
        m_model->setFilter(u"bc"_s);
        QCOMPARE(text(0, PlaylistModel::TitleRole), u"Title bc"_s);
        m_model->setFilter(QString());
        QCOMPARE(text(0, PlaylistModel::TitleRole), u"Title ab"_s);
        QCOMPARE(text(3, PlaylistModel::TitleRole), u"Title bc"_s);
        QCOMPARE(resets.count(), 0);
    }

    void allAndNoneMeanHiddenEntriesToo()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        m_model->setFilter(u"b"_s);
        m_model->selectAll();
        QCOMPARE(state().selectedPlaylistItems().size(), 3);
        QCOMPARE(m_model->countLine(), u"3 of 3 selected"_s);
        QCOMPARE(m_model->unseenLine(), u"2 of them not shown"_s);
        m_model->selectNone();
        QVERIFY(state().selectedPlaylistItems().isEmpty());
        QCOMPARE(m_model->unseenLine(), QString());
    }

    void onlyTheseSelectsWhatIsShown()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        m_model->selectAll();
        m_model->setFilter(u"b"_s);
        m_model->selectShown();
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"b"_s}));
        QCOMPARE(m_model->unseenLine(), QString());
    }

    void togglingAFilteredRowTogglesItsEntry()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s}));
        m_model->setFilter(u"c"_s);
        m_model->toggle(0);
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"c"_s}));
    }

    void aNewPlaylistHasNoFilter()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s}));
        m_model->setFilter(u"a"_s);
        m_model->setInfo(StateFixture::playlist({u"c"_s, u"d"_s}));
        QCOMPARE(m_model->filter(), QString());
        QCOMPARE(m_model->rowCount(), 2);
    }

    void downloadedEntriesAreMarked()
    {
        m_model->setInfo(StateFixture::playlist({u"a"_s, u"b"_s}));
        QVERIFY(!isKnown(1));
        state().addToHistory(StateFixture::record(u"b"_s, StateFixture::video(u"b"_s).originalURL));
        QVERIFY(isKnown(1));
        QVERIFY(!isKnown(0));
        const QSignalSpy changes(m_model.get(), &PlaylistModel::dataChanged);
        state().addToHistory(StateFixture::record(u"x"_s, StateFixture::video(u"x"_s).originalURL));
        QCOMPARE(changes.count(), 0); // of no interest here
        m_model->setInfo(StateFixture::playlist({u"b"_s, u"c"_s}));
        QVERIFY(isKnown(0));
        QVERIFY(!isKnown(1));
    }

private:
    bool isKnown(int row)
    {
        return m_model->data(m_model->index(row), PlaylistModel::KnownRole).toBool();
    }
    AppState &state() { return *m_fixture->state; }
    QString text(int row, int role) { return m_model->data(m_model->index(row), role).toString(); }
    bool isSelected(int row)
    {
        return m_model->data(m_model->index(row), PlaylistModel::SelectedRole).toBool();
    }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<PlaylistModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_MAIN(PlaylistModelTest)
#include "PlaylistModelTest.moc"
