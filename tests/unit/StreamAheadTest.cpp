// SPDX-License-Identifier: GPL-3.0-or-later
#include "StreamAhead.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// What becomes of a URL that is resolved ahead of its use.
class StreamAheadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_asked.clear();
        m_completions.clear();
        m_got.clear();
        m_failures = 0;
        make({});
    }

    void itIsDueInTheLastSecondsOfALongStream()
    {
        make({.shortest = 20, .lead = 5, .validity = {}});
        QVERIFY(!m_ahead->isDue(15, 20)); // too short
        QVERIFY(!m_ahead->isDue(15, 21));
        QVERIFY(m_ahead->isDue(16, 21));
        QVERIFY(!m_ahead->isDue(0, 0)); // of unknown length
    }

    void theReplyIsHandedOverOnce()
    {
        m_ahead->resolve(u"a"_s);
        m_ahead->resolve(u"a"_s);
        QCOMPARE(m_asked, QStringList{u"a"_s});
        settle(QUrl(u"http://m/a"_s));
        m_ahead->resolve(u"a"_s);
        QCOMPARE(m_asked.size(), 1);
        QVERIFY(take(u"a"_s));
        QCOMPARE(m_got, QList{QUrl(u"http://m/a"_s)});
        QVERIFY(!take(u"a"_s));
    }

    void whoeverIsTooEarlyGetsItWhenItComes()
    {
        m_ahead->resolve(u"a"_s);
        QVERIFY(take(u"a"_s));
        QVERIFY(m_got.isEmpty());
        settle(QUrl(u"http://m/a"_s));
        QCOMPARE(m_got, QList{QUrl(u"http://m/a"_s)});
    }

    void whoeverIsTooEarlyGetsItsFailureToo()
    {
        m_ahead->resolve(u"a"_s);
        QVERIFY(take(u"a"_s));
        settle(YTDLPError::fetchFailed(u"no"_s));
        QCOMPARE(m_failures, 1);
    }

    void aFailureIsOfNoUseAndNotRepeatedAtOnce()
    {
        m_ahead->resolve(u"a"_s);
        settle(YTDLPError::fetchFailed(u"no"_s));
        m_ahead->resolve(u"a"_s);
        QCOMPARE(m_asked.size(), 1);
        QVERIFY(!take(u"a"_s));
    }

    void anotherChoiceThrowsItAway()
    {
        m_ahead->resolve(u"a"_s);
        settle(QUrl(u"http://m/a"_s));
        QVERIFY(!take(u"b"_s));
        QVERIFY(!take(u"a"_s));
    }

    void anotherNextReplacesIt()
    {
        m_ahead->resolve(u"a"_s);
        m_ahead->resolve(u"b"_s);
        settle(QUrl(u"http://m/a"_s)); // late
        QVERIFY(take(u"b"_s));
        QVERIFY(m_got.isEmpty());
        settle(QUrl(u"http://m/b"_s));
        QCOMPARE(m_got, QList{QUrl(u"http://m/b"_s)});
    }

    void afterItsTimeItIsOfNoUse()
    {
        make({.shortest = 0, .lead = 0, .validity = std::chrono::milliseconds(0)});
        m_ahead->resolve(u"a"_s);
        settle(QUrl(u"http://m/a"_s));
        QVERIFY(!take(u"a"_s));
        m_ahead->resolve(u"a"_s);
        settle(QUrl(u"http://m/a"_s));
        m_ahead->resolve(u"a"_s); // again
        QCOMPARE(m_asked.size(), 3);
    }

private:
    void make(AheadLimits limits)
    {
        m_ahead = std::make_unique<StreamAhead>(
            m_mailbox, limits, [this](const QString &url, const Completion<QUrl> &completion) {
                m_asked.append(url);
                m_completions.append(completion);
            });
    }

    /// What was asked first is answered.
    void settle(const Reply<QUrl> &reply)
    {
        bool isDelivered = false;
        m_completions.takeFirst()(reply);
        m_mailbox->post([&] { isDelivered = true; });
        m_mailbox->deliverUntil([&] { return isDelivered; });
    }

    bool take(const QString &url)
    {
        return m_ahead->handOver(url, [this](const Reply<QUrl> &reply) {
            if (errorOf(reply))
                ++m_failures;
            else
                m_got.append(std::get<QUrl>(reply));
        });
    }

    const std::shared_ptr<Mailbox> m_mailbox = std::make_shared<Mailbox>();
    std::unique_ptr<StreamAhead> m_ahead;
    QStringList m_asked;
    QList<Completion<QUrl>> m_completions;
    QList<QUrl> m_got;
    int m_failures = 0;
};

QTEST_GUILESS_MAIN(StreamAheadTest)
#include "StreamAheadTest.moc"
