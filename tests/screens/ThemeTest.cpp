// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"
#include "WindowFixture.h"

#include <QQmlComponent>

/// That what is shown can be read.
class ThemeTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextOfTheThemeCanBeRead_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void everyTextOfTheThemeCanBeRead()
    {
        QFETCH(bool, dark);
        QObject *const theme = findTheme();
        QVERIFY(theme);
        theme->setProperty("dark", dark);
        const auto color = [&](const char *name) { return theme->property(name).value<QColor>(); };
        const auto over = [](const QColor &top, const QColor &bottom, float opacity = 1) {
            const float alpha = top.alphaF() * opacity;
            const auto mix = [alpha](float a, float b) { return a * alpha + b * (1 - alpha); };
            return QColor::fromRgbF(mix(top.redF(), bottom.redF()),
                                    mix(top.greenF(), bottom.greenF()),
                                    mix(top.blueF(), bottom.blueF()));
        };
        const QColor white = color("overAccent");
        QVERIFY(contrastRatio(white, color("accentFill")) >= 4.5);
        for (const char *surfaceName : {"window", "card"}) {
            const QColor surface = color(surfaceName);
            for (const char *name : {"primary", "secondary", "accent", "red", "green", "orange"}) {
                const double contrast = contrastRatio(over(color(name), surface), surface);
                QVERIFY2(contrast >= 4.5,
                         qPrintable(
                             u"%1 on %2: %3"_s.arg(QLatin1String(name), QLatin1String(surfaceName))
                                 .arg(contrast)));
            }
            QVERIFY(contrastRatio(white, over(color("redFill"), surface, 0.88F)) >= 4.5);
            for (const char *name : {"accent", "red", "green", "orange"}) {
                const QColor chip = over(color(name), surface, 0.1F);
                QVERIFY2(contrastRatio(color(name), chip) >= 4.5, name);
            }
        }
        theme->setProperty("dark", m_appearance->isDark());
    }

    void withoutMotionWhatComesIsThereAtOnce()
    {
        QObject *const theme = findTheme();
        QVERIFY(theme && theme->property("animates").toBool());
        for (const bool animates : {false, true}) {
            theme->setProperty("animates", animates);
            state().isFetching = true;
            // At once, before any frame: else it is only about to come.
            QCOMPARE(item("fetching") != nullptr, !animates);
            QTRY_VERIFY_WITH_TIMEOUT(item("fetching"), patience);
            state().isFetching = false;
            QTRY_VERIFY_WITH_TIMEOUT(!item("fetching"), patience);
        }
    }

private:
    QObject *findTheme()
    {
        QQmlComponent component(&m_main->engine());
        component.setData("import QtQml; import Quillon.Shared\n"
                          "QtObject { property QtObject theme: Theme }",
                          {});
        const std::unique_ptr<QObject> holder(component.create());
        return holder ? holder->property("theme").value<QObject *>() : nullptr;
    }
};

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
