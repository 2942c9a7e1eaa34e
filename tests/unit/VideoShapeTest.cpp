// SPDX-License-Identifier: GPL-3.0-or-later
#include "VideoShape.h"

#include <QTest>

using namespace Qt::StringLiterals;

class VideoShapeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPictureIsAsLargeAsItIsWorth_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<QSize>("proportions");
        QTest::addColumn<QSize>("room");
        QTest::addColumn<QSize>("inMemory");
        QTest::addColumn<QSize>("forGraphicsCard");
        const QSize small(640, 360);
        const QSize wide(720, 576);
        const QSize none(0, 0);
        QTest::newRow("enlarged") << small << small << QSize(3840, 2160) << QSize(3840, 2160)
                                  << small;
        QTest::newRow("reduced") << small << small << QSize(320, 300) << QSize(320, 180)
                                 << QSize(320, 180);
        QTest::newRow("of pixels that are not square")
            << wide << QSize(1024, 576) << QSize(2048, 1152) << QSize(2048, 1152) << wide;
        QTest::newRow("reduced in one direction")
            << wide << QSize(1024, 576) << QSize(900, 900) << QSize(900, 506) << QSize(720, 506);
        QTest::newRow("unknown") << QSize() << QSize() << QSize(300, 200) << none << none;
        QTest::newRow("nobody looks") << small << small << QSize() << none << none;
        QTest::newRow("absurd") << small << QSize(60000, 1) << QSize(300, 200) << QSize(300, 1)
                                << QSize(300, 1);
    }
    void aPictureIsAsLargeAsItIsWorth()
    {
        QFETCH(QSize, pixels);
        QFETCH(QSize, proportions);
        QFETCH(QSize, room);
        const VideoShape video{pixels, proportions};
        const auto drawn = [&](bool isForGraphicsCard) {
            const QSize size =
                drawnSize(video, {.size = room, .isForGraphicsCard = isForGraphicsCard});
            return size.isEmpty() ? QSize(0, 0) : size;
        };
        QTEST(drawn(false), "inMemory");
        QTEST(drawn(true), "forGraphicsCard");
    }
};

QTEST_GUILESS_MAIN(VideoShapeTest)
#include "VideoShapeTest.moc"
