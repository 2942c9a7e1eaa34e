// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelativeDate.h"

#include <QTest>
#include <QTimeZone>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class RelativeDateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void datesUseOneUnitRoundedDown_data()
    {
        QTest::addColumn<double>("secondsAgo");
        QTest::addColumn<QString>("text");
        QTest::newRow("this moment") << 0.0 << u"now"_s;
        QTest::newRow("not yet a second") << 0.9 << u"now"_s;
        QTest::newRow("a second") << 1.0 << u"1 sec. ago"_s;
        QTest::newRow("almost a minute") << 59.9 << u"59 sec. ago"_s;
        QTest::newRow("a minute") << 60.0 << u"1 min. ago"_s;
        QTest::newRow("five minutes") << 5 * 60.0 << u"5 min. ago"_s;
        QTest::newRow("almost an hour") << 3599.0 << u"59 min. ago"_s;
        QTest::newRow("two hours") << 2 * 3600.0 << u"2 hr. ago"_s;
        QTest::newRow("a day") << 86400.0 << u"1 day ago"_s;
        QTest::newRow("six days") << 6.9 * 86400 << u"6 days ago"_s;
        QTest::newRow("a week") << 7.0 * 86400 << u"1 wk. ago"_s;
        QTest::newRow("four weeks") << 30.0 * 86400 << u"4 wk. ago"_s;
        QTest::newRow("a month") << 31.0 * 86400 << u"1 mo. ago"_s;
        QTest::newRow("eleven months") << 364.0 * 86400 << u"11 mo. ago"_s;
        QTest::newRow("a year") << 366.0 * 86400 << u"1 yr. ago"_s;
        QTest::newRow("ahead") << -7200.0 << u"in 2 hr."_s;
        QTest::newRow("days ahead") << -3.0 * 86400 << u"in 3 days"_s;
    }

    void datesUseOneUnitRoundedDown()
    {
        QFETCH(double, secondsAgo);
        QFETCH(QString, text);
        QCOMPARE(relativeDate({.seconds = 800'000'000 - secondsAgo}, {.seconds = 800'000'000}),
                 text);
    }

    void theYears1And30000AreFarAway()
    {
        const ReferenceDate now = at({2026, 11, 21}, {12, 0});
        QCOMPARE(relativeDate(at({1, 1, 1}, {0, 0}), now), u"2,025 yr. ago"_s);
        QCOMPARE(relativeDate(at({30000, 1, 1}, {0, 0}), now), u"in 27,973 yr."_s);
    }

    void anyNumberGivesAText()
    {
        const ReferenceDate now{.seconds = 8e8};
        QCOMPARE(relativeDate({.seconds = std::nan("")}, now), u"now"_s);
        for (const double odd : {std::numeric_limits<double>::infinity(), 1e300, -1e300,
                                 -std::numeric_limits<double>::infinity()})
            QVERIFY(relativeDate({.seconds = odd}, now).contains(u"yr."));
    }

    void recentDatesRefreshMoreOften()
    {
        QCOMPARE(relativeDateLifetime(3), 1000);
        QVERIFY(relativeDateLifetime(300) <= 10'000);
        QVERIFY(relativeDateLifetime(86400) <= 60'000);
    }

private:
    static ReferenceDate at(QDate date, QTime time)
    {
        return ReferenceDate::fromDateTime(QDateTime(date, time, QTimeZone::utc()));
    }
};

QTEST_GUILESS_MAIN(RelativeDateTest)
#include "RelativeDateTest.moc"
