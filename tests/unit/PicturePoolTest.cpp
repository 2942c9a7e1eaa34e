// SPDX-License-Identifier: GPL-3.0-or-later
#include "PicturePool.h"

#include <QSet>
#include <QTest>

#include <thread>

class PicturePoolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_pool = PicturePool::create(); }

    void rowsAreAligned()
    {
        const QImage picture = take({321, 5});
        QCOMPARE(picture.size(), QSize(321, 5));
        QCOMPARE(picture.bytesPerLine() % 64, 0);
        QCOMPARE(quintptr(picture.constBits()) % 64, quintptr(0));
    }

    void memoryIsUsedAgainOnceNobodyHasIt()
    {
        QImage first = take();
        const QImage shown = first;
        const uchar *const memory = first.constBits();
        first = QImage();
        QVERIFY(take().constBits() != memory);
        QSet<const uchar *> others;
        for (int number = 0; number < 10; ++number)
            others.insert(take().constBits());
        QCOMPARE(others.size(), 1);
    }

    void whatIsShownIsLeftAlone()
    {
        QImage shown = take();
        shown.fill(Qt::red);
        for (int number = 0; number < 3; ++number)
            take().fill(Qt::blue);
        QCOMPARE(shown.pixelColor(3, 3), QColor(Qt::red));
    }

    void anotherSizeGetsOtherMemory()
    {
        (void)take({64, 64});
        QImage large = take({640, 640});
        large.fill(Qt::white); // all of it is there
        QCOMPARE(large.sizeInBytes(), 640 * 640 * 4);
    }

    void picturesOutliveThePool()
    {
        QImage picture = take();
        m_pool->clear();
        m_pool.reset();
        picture.fill(Qt::green);
        QCOMPARE(picture.pixelColor(1, 1), QColor(Qt::green));
    }

    void anyThreadMayBeTheLast()
    {
        for (int number = 0; number < 100; ++number) {
            std::thread([picture = take()] {}).join();
            (void)take();
        }
    }

private:
    QImage take(const QSize &size = {64, 64}) { return m_pool->take(size, QImage::Format_RGB32); }

    std::shared_ptr<PicturePool> m_pool;
};

QTEST_GUILESS_MAIN(PicturePoolTest)
#include "PicturePoolTest.moc"
