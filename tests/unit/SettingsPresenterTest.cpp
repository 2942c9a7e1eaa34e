// SPDX-License-Identifier: GPL-3.0-or-later
#include "SettingsPresenter.h"
#include "HomeDirectory.h"
#include "StateFixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

class SettingsPresenterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_model = std::make_unique<SettingsPresenter>(state());
    }

    void cleanup()
    {
        m_model.reset();
        m_fixture.reset();
    }

    void theMenusOfferTheirTablesInOrder()
    {
        QCOMPARE(SettingsPresenter::historyLabels(),
                 QStringList({u"25"_s, u"50"_s, u"100"_s, u"200"_s, u"Unlimited"_s}));
        QCOMPARE(SettingsPresenter::speedLabels(),
                 QStringList({u"Full Speed"_s, u"10 MB/s"_s, u"5 MB/s"_s, u"2 MB/s"_s, u"1 MB/s"_s,
                              u"500 KB/s"_s}));
        QCOMPARE(SettingsPresenter::browserLabels(),
                 QStringList(
                     {u"Safari"_s, u"Chrome"_s, u"Firefox"_s, u"Brave"_s, u"Edge"_s, u"None"_s}));
    }

    void eachChoiceCountsAtOnce()
    {
        const QList<qint64> limits{25, 50, 100, 200, 0};
        for (int index = 0; index < limits.size(); ++index) {
            m_model->chooseHistory(index);
            QCOMPARE(state().historyLimit(), limits[index]);
            QCOMPARE(m_model->historyIndex(), index);
        }
        const QStringList speeds{u"0"_s, u"10M"_s, u"5M"_s, u"2M"_s, u"1M"_s, u"500K"_s};
        for (int index = 0; index < speeds.size(); ++index) {
            m_model->chooseSpeed(index);
            QCOMPARE(state().speedLimit(), speeds[index]);
            QCOMPARE(m_model->speedIndex(), index);
        }
        const QStringList browsers{u"safari"_s, u"chrome"_s, u"firefox"_s,
                                   u"brave"_s,  u"edge"_s,   u"none"_s};
        for (int index = 0; index < browsers.size(); ++index) {
            m_model->chooseBrowser(index);
            QCOMPARE(state().cookiesBrowser(), browsers[index]);
            QCOMPARE(m_model->browserIndex(), index);
        }
        QVERIFY(!QFile::exists(m_fixture->preferences->path()));
    }

    void aValueInNoTableSelectsNothing()
    {
        state().speedLimit = u"3M"_s;
        state().historyLimit = 7;
        state().cookiesBrowser = u"Firefox"_s;
        QCOMPARE(m_model->speedIndex(), -1);
        QCOMPARE(m_model->historyIndex(), -1);
        QCOMPARE(m_model->browserIndex(), -1);
        m_model->chooseSpeed(-1);
        m_model->chooseSpeed(6);
        QCOMPARE(state().speedLimit(), u"3M"_s);
    }

    void saveStoresAndConfirmsForTwoSeconds()
    {
        state().speedLimit = u"1M"_s;
        QElapsedTimer clock;
        clock.start();
        m_model->save();
        QVERIFY(m_model->savedConfirmation());
        QCOMPARE(m_fixture->preferences->string(u"quillon.speedLimit"_s), u"1M"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!m_model->savedConfirmation(), patience);
        QVERIFY(clock.elapsed() >= 1990);
    }

    void aSecondSaveDoesNotExtendTheConfirmation()
    {
        m_model->save();
        QSignalSpy changes(m_model.get(), &SettingsPresenter::changed);
        QTimer::singleShot(1000, m_model.get(), [this] { m_model->save(); });
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 1, patience); // the second, still confirmed
        QVERIFY(m_model->savedConfirmation());
        QElapsedTimer sinceSecond;
        sinceSecond.start();
        QTRY_VERIFY_WITH_TIMEOUT(!m_model->savedConfirmation(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 3, patience); // and the second's own end
        QVERIFY(!m_model->savedConfirmation());
        QVERIFY(sinceSecond.elapsed() >= 1000);
    }

    void savingDoesNotTrimTheHistory()
    {
        state().history = AppState::History(30);
        m_model->chooseHistory(0);
        m_model->save();
        QCOMPARE(state().history().size(), 30);
    }

    void theChooserStartsAtTheFolderOrHome()
    {
        QCOMPARE(m_model->startFolder(), QUrl::fromLocalFile(m_fixture->folder.path()));
        state().downloadDir = u"/usr/share"_s;
        QCOMPARE(m_model->startFolder(), QUrl::fromLocalFile(u"/usr/share"_s));
        state().downloadDir = u"/gone"_s;
        QCOMPARE(m_model->startFolder(), QUrl::fromLocalFile(homeDirectory()));
    }

    void theChosenPathHasNoTrailingSlash()
    {
        m_model->chooseFolder(QUrl(u"file:///srv/my%20videos/"_s));
        QCOMPARE(state().downloadDir(), u"/srv/my videos"_s);
        m_model->chooseFolder(QUrl(u"file:///"_s));
        QCOMPARE(state().downloadDir(), u"/"_s);
    }

    void choosingARemoteFolderChangesNothing()
    {
        state().downloadDir = u"/srv"_s;
        m_model->chooseFolder(QUrl(u"sftp://host/videos"_s));
        m_model->chooseFolder({});
        QCOMPARE(state().downloadDir(), u"/srv"_s);
    }

private:
    AppState &state() { return *m_fixture->state; }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<SettingsPresenter> m_model;
};

QTEST_MAIN(SettingsPresenterTest)
#include "SettingsPresenterTest.moc"
