// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlowLayout.h"

#include <QTest>

#include <limits>

namespace {

using Rows = FlowLayout::Rows;
constexpr qreal unspecified = std::numeric_limits<qreal>::infinity();

} // namespace

class FlowLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutChildrenTheHeightIsZero()
    {
        QCOMPARE(FlowLayout::computeRows({}, 6, 100), Rows{{}});
        QCOMPARE(FlowLayout::sizeThatFits({}, 6, 100), QSizeF(100, 0));
    }

    void withoutAWidthThereIsOneRow()
    {
        const QList<QSizeF> sizes{{500, 10}, {500, 20}, {500, 15}};
        QCOMPARE(FlowLayout::computeRows({500, 500, 500}, 6, unspecified), (Rows{{0, 1, 2}}));
        QCOMPARE(FlowLayout::sizeThatFits(sizes, 6, unspecified), QSizeF(0, 20));
    }

    void aWideChildGetsItsOwnRow()
    {
        QCOMPARE(FlowLayout::computeRows({200, 10}, 6, 100), (Rows{{0}, {1}}));
        QCOMPARE(FlowLayout::computeRows({10, 200, 10}, 6, 100), (Rows{{0}, {1}, {2}}));
    }

    void aFillingChildStaysOnItsRow()
    {
        QCOMPARE(FlowLayout::computeRows({40, 54}, 6, 100), (Rows{{0, 1}}));
        QCOMPARE(FlowLayout::computeRows({40, 54.5}, 6, 100), (Rows{{0}, {1}}));
    }

    void theSpacingBehindTheLastChildIsSpent()
    {
        // 40 and 6 leave 54; the third child comes after another 6.
        QCOMPARE(FlowLayout::computeRows({40, 40, 10}, 6, 100), (Rows{{0, 1}, {2}}));
    }

    void rowsAreAsHighAsTheirHighestChild()
    {
        const QList<QSizeF> sizes{{60, 10}, {30, 20}, {60, 5}};
        QCOMPARE(FlowLayout::sizeThatFits(sizes, 6, 100), QSizeF(100, 20 + 6 + 5));
        QCOMPARE(FlowLayout::placements(sizes, 6, 100), (QList<QPointF>{{0, 0}, {66, 0}, {0, 26}}));
    }

    void noHeightIsNegative() { QCOMPARE(FlowLayout::sizeThatFits({{1, 0}}, 6, 9).height(), 0.0); }
};

QTEST_GUILESS_MAIN(FlowLayoutTest)
#include "FlowLayoutTest.moc"
