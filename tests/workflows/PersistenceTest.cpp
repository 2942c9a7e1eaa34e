// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

HistoryItem record(int number)
{
    return {.id = QUuid::createUuid(),
            .title = QString::number(number),
            .thumbnailURL = {},
            .url = {},
            .format = u"mp4"_s,
            .quality = u"Best"_s,
            .savedPath = {},
            .date = ReferenceDate::now()};
}

void fillHistory(AppState &state, int count)
{
    AppState::History records;
    for (int number = 0; number < count; ++number)
        records.append(record(number));
    state.history = records;
}

} // namespace

/// What is kept from one run of the program to the next.
class PersistenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void theFirstStartHasTheDefaultSettings()
    {
        QVERIFY(!QFile::exists(m_fixture->preferences->path()));
        const AppState &state = *m_fixture->state;
        QCOMPARE(state.downloadDir(), QString());
        QCOMPARE(state.historyLimit(), 50);
        QCOMPARE(state.speedLimit(), u"0"_s);
        QCOMPARE(state.notificationsEnabled(), true);
        QCOMPARE(state.cookiesBrowser(), u"none"_s);
    }

    void savedSettingsSurviveARestart()
    {
        AppState &state = *m_fixture->state;
        state.downloadDir = u"~/Movies"_s;
        state.speedLimit = u"5M"_s;
        state.notificationsEnabled = false;
        state.cookiesBrowser = u"firefox"_s;
        state.historyLimit = 100;
        state.saveSettings();
        m_fixture->restart([](const QString &path) {
            const QJsonObject stored = QJsonDocument::fromJson(contentOf(path)).object();
            QVERIFY(stored[u"quillon.downloadDir"].isString());
            QVERIFY(stored[u"quillon.historyLimit"].isDouble());
            QVERIFY(stored[u"quillon.speedLimit"].isString());
            QVERIFY(stored[u"quillon.notifications"].isBool());
            QVERIFY(stored[u"quillon.cookiesBrowser"].isString());
        });
        QCOMPARE(m_fixture->state->downloadDir(), u"~/Movies"_s);
        QCOMPARE(m_fixture->state->speedLimit(), u"5M"_s);
        QCOMPARE(m_fixture->state->notificationsEnabled(), false);
        QCOMPARE(m_fixture->state->cookiesBrowser(), u"firefox"_s);
        QCOMPARE(m_fixture->state->historyLimit(), 100);
    }

    void aSettingThatIsNotSavedIsLost()
    {
        m_fixture->state->downloadDir = u"~/Movies"_s;
        m_fixture->restart();
        QCOMPARE(m_fixture->state->downloadDir(), QString());
    }

    void anUnlimitedHistoryReadsBackAs50()
    {
        m_fixture->state->historyLimit = 0;
        m_fixture->state->saveSettings();
        m_fixture->restart();
        QCOMPARE(m_fixture->state->historyLimit(), 50);
    }

    void aNegativeHistoryLimitMeansUnlimited()
    {
        m_fixture->preferences->setInteger(u"quillon.historyLimit"_s, -3);
        m_fixture->restart();
        AppState &state = *m_fixture->state;
        QCOMPARE(state.historyLimit(), -3);
        fillHistory(state, 60);
        state.addToHistory(record(99));
        QCOMPARE(state.history().size(), 61);
    }

    void notificationsStoredAsTextOrNumberAreTrue()
    {
        m_fixture->preferences->setString(u"quillon.notifications"_s, u"false"_s);
        m_fixture->restart();
        QCOMPARE(m_fixture->state->notificationsEnabled(), true);
        m_fixture->preferences->setInteger(u"quillon.notifications"_s, 0);
        m_fixture->restart();
        QCOMPARE(m_fixture->state->notificationsEnabled(), true);
    }

    void settingsOfOtherTypesConvertOrFallBack_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("number");
        QTest::newRow("text") << QByteArray(R"("200")") << u"200"_s << 200LL;
        QTest::newRow("number") << QByteArray("25") << u"25"_s << 25LL;
        QTest::newRow("boolean") << QByteArray("true") << u"1"_s << 1LL;
        QTest::newRow("list") << QByteArray("[1]") << QString() << 50LL;
        QTest::newRow("object") << QByteArray(R"({"a":1})") << QString() << 50LL;
    }

    void settingsOfOtherTypesConvertOrFallBack()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, text);
        QFETCH(qint64, number);
        m_fixture->restart([&](const QString &path) {
            writeFile(path,
                      R"({"quillon.downloadDir":$,"quillon.historyLimit":$,"quillon.speedLimit":$,
                          "quillon.cookiesBrowser":$,"quillon.history.v2":$})"_ba.replace("$",
                                                                                          stored));
        });
        const AppState &state = *m_fixture->state;
        QCOMPARE(state.downloadDir(), text);
        QCOMPARE(state.historyLimit(), number);
        QCOMPARE(state.speedLimit(), text.isEmpty() ? u"0"_s : text);
        QCOMPARE(state.cookiesBrowser(), text.isEmpty() ? u"none"_s : text);
        QVERIFY(state.history().isEmpty());
    }

    void theOldestRecordIsDroppedAtTheLimit()
    {
        AppState &state = *m_fixture->state;
        state.historyLimit = 25;
        fillHistory(state, 25);
        state.addToHistory(record(99));
        QCOMPARE(state.history().size(), 25);
        QCOMPARE(state.history().first().title, u"99"_s);
        QCOMPARE(state.history().last().title, u"23"_s);
    }

    void aLoweredLimitAppliesAtTheNextRecord()
    {
        AppState &state = *m_fixture->state;
        state.historyLimit = 200;
        fillHistory(state, 100);
        state.historyLimit = 25;
        state.saveSettings();
        QCOMPARE(state.history().size(), 100);
        const AppState::History before = state.history();
        state.addToHistory(record(99));
        QCOMPARE(state.history(), AppState::History({state.history().first()}) + before.first(24));
        QCOMPARE(state.history().first().title, u"99"_s);
    }

    void theHistoryComesBackExactly()
    {
        AppState &state = *m_fixture->state;
        HistoryItem item = record(1);
        item.date.seconds = 785412345.1234567;
        state.addToHistory(item);
        state.addToHistory(item); // downloaded twice, recorded twice
        m_fixture->restart();
        QCOMPARE(m_fixture->state->history(), AppState::History({item, item}));
    }

    void anUndecodableHistoryStaysUntilTheNextSave()
    {
        const QByteArray broken = "[{\"id\":5}]";
        m_fixture->preferences->setBlob(u"quillon.history.v2"_s,
                                        [broken] { return std::optional(broken); });
        m_fixture->restart();
        QVERIFY(m_fixture->state->history().isEmpty());
        m_fixture->state->saveSettings();
        m_fixture->restart();
        QCOMPARE(m_fixture->preferences->blob(u"quillon.history.v2"_s), broken);
        m_fixture->state->addToHistory(record(1));
        m_fixture->restart();
        QCOMPARE(m_fixture->state->history().size(), 1);
    }

private:
    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_GUILESS_MAIN(PersistenceTest)
#include "PersistenceTest.moc"
