// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mailbox.h"

#include <QTest>

#include <algorithm>
#include <thread>

class MailboxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messagesArriveInOrderOnTheReceivingThread()
    {
        Mailbox mailbox;
        const auto delivery = mailbox.open();
        QList<int> received;
        const auto receiver = std::this_thread::get_id();
        std::thread sender([&] {
            for (int number = 0; number < 1000; ++number) {
                mailbox.post([&, number] {
                    QCOMPARE(std::this_thread::get_id(), receiver);
                    received.append(number);
                });
            }
        });
        QVERIFY(QTest::qWaitFor([&] { return received.size() == 1000; }, 30000));
        sender.join();
        QVERIFY(std::is_sorted(received.begin(), received.end()));
    }

    void messagesPostedByAMessageArriveToo()
    {
        Mailbox mailbox;
        const auto delivery = mailbox.open();
        int received = 0;
        mailbox.post([&] { mailbox.post([&] { ++received; }); });
        QVERIFY(QTest::qWaitFor([&] { return received == 1; }));
    }

    void aClosedMailboxDropsWhatItHolds()
    {
        Mailbox mailbox;
        const auto delivery = mailbox.open();
        int received = 0;
        mailbox.post([&] {
            ++received;
            mailbox.close();
        });
        mailbox.post([&] { ++received; });
        QVERIFY(QTest::qWaitFor([&] { return received == 1; }));
        mailbox.post([&] { ++received; });
        QCoreApplication::processEvents();
        QCOMPARE(received, 1);
    }

    void waitingDeliversUntilTheConditionHolds()
    {
        Mailbox mailbox;
        const auto delivery = mailbox.open();
        int received = 0;
        std::thread sender([&] {
            for (int number = 0; number < 100; ++number)
                mailbox.post([&] { ++received; });
        });
        mailbox.deliverUntil([&] { return received == 100; });
        sender.join();
        QCOMPARE(received, 100);
    }
};

QTEST_GUILESS_MAIN(MailboxTest)
#include "MailboxTest.moc"
