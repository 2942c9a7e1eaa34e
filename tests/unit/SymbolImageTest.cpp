// SPDX-License-Identifier: GPL-3.0-or-later
#include "SymbolImage.h"

#include <QQuickWindow>
#include <QSet>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// Symbols as they are drawn into a window.
class SymbolImageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QQuickWindow>();
        m_window->setColor(Qt::white);
        m_window->resize(40, 40);
        m_symbol = new SymbolImage(m_window->contentItem());
        m_symbol->setPosition({10, 10});
        m_symbol->setSize({20, 20});
        m_symbol->setSymbol(u"xmark.circle.fill"_s);
        m_symbol->setColor(Qt::red);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void aSymbolFillsItsPlaceInItsColour()
    {
        const QRect drawn = coloured(Qt::red);
        QVERIFY(QRect(10, 10, 20, 20).contains(drawn));
        QVERIFY(drawn.width() > 16 && drawn.height() > 16);
    }

    void anotherColourIsDrawnAtOnce()
    {
        QVERIFY(!coloured(Qt::red).isEmpty());
        m_symbol->setColor(Qt::blue);
        QVERIFY(!coloured(Qt::blue).isEmpty());
        QVERIFY(coloured(Qt::red).isEmpty());
    }

    void anotherSizeIsDrawnAnew()
    {
        QVERIFY(!coloured(Qt::red).isEmpty());
        m_symbol->setSize({10, 10});
        const QImage resized = m_window->grabWindow();
        SymbolImage small(m_window->contentItem());
        small.setPosition(m_symbol->position());
        small.setSize(m_symbol->size());
        small.setSymbol(m_symbol->symbol());
        small.setColor(m_symbol->color());
        m_symbol->setVisible(false);
        QCOMPARE(resized, m_window->grabWindow());
    }

    void aTurnedSymbolHasSmoothEdges()
    {
        const QSet<QRgb> upright = colours();
        m_symbol->setRotation(30);
        QVERIFY((colours() - upright).size() > 20);
    }

    void anotherSymbolTakesThePlaceOfTheFirst()
    {
        const QImage first = m_window->grabWindow();
        m_symbol->setSymbol(u"magnifyingglass"_s);
        QVERIFY(m_window->grabWindow() != first);
        QVERIFY(!coloured(Qt::red).isEmpty());
    }

    void withoutASymbolNothingIsDrawn()
    {
        for (const QString &name : {QString(), u"no such symbol"_s}) {
            m_symbol->setSymbol(name);
            QVERIFY(coloured(Qt::red).isEmpty());
        }
    }

private:
    /// What of the window has exactly this colour.
    QRect coloured(const QColor &color)
    {
        const QImage picture = m_window->grabWindow();
        QRect found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    QSet<QRgb> colours()
    {
        const QImage picture = m_window->grabWindow();
        QSet<QRgb> found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                found.insert(picture.pixel(x, y));
        }
        return found;
    }

    std::unique_ptr<QQuickWindow> m_window;
    SymbolImage *m_symbol = nullptr;
};

QTEST_MAIN(SymbolImageTest)
#include "SymbolImageTest.moc"
