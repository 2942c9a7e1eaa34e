// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemAppearance.h"
#include "Appearance.h"
#include "StateFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
constexpr uint dark = 1;
constexpr uint light = 2;

/// What answers for the desktop's settings.
class SettingsPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList & /*groups*/) const
    {
        return {{appearanceGroup, {{u"color-scheme"_s, scheme}}}};
    }

public:
    uint scheme = dark;
};

} // namespace

/// How the desktop wants programs to look, told over a bus of the test's own. The portal
/// lives on the thread that waits for it, so that its first answer is always late.
class SystemAppearanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_desktop.isConnected(), "this test needs a session bus: use dbus-run-session");
        qDBusRegisterMetaType<SettingGroups>();
        QVERIFY(m_desktop.registerObject(portalPath, &m_portal, QDBusConnection::ExportAllSlots));
        QVERIFY(m_desktop.registerService(u"org.freedesktop.portal.Desktop"_s));
    }
    void init() { m_portal.scheme = dark; }

    void aLateAnswerIsStillUsed()
    {
        const SystemAppearance system;
        QVERIFY(!system.isDark());
        QTRY_VERIFY_WITH_TIMEOUT(system.isDark(), patience);
    }

    void aChangeIsFollowedLive()
    {
        const SystemAppearance system;
        QTRY_VERIFY_WITH_TIMEOUT(system.isDark(), patience);
        tellScheme(light);
        QTRY_VERIFY_WITH_TIMEOUT(!system.isDark(), patience);
        tellScheme(dark);
        QTRY_VERIFY_WITH_TIMEOUT(system.isDark(), patience);
        tellScheme(0); // no preference: the toolkit's
        QTRY_VERIFY_WITH_TIMEOUT(!system.isDark(), patience);
    }

    void highContrastIsFollowedLive()
    {
        Preferences preferences(m_folder.filePath(u"preferences.json"_s));
        const SystemAppearance system;
        const Appearance appearance(preferences, system);
        QVERIFY(!appearance.highContrast());
        tell(u"contrast"_s, 1);
        QTRY_VERIFY_WITH_TIMEOUT(appearance.highContrast(), patience);
        tell(u"contrast"_s, 0);
        QTRY_VERIFY_WITH_TIMEOUT(!appearance.highContrast(), patience);
    }

    void reducedMotionIsFollowedLive()
    {
        const SystemAppearance system;
        QVERIFY(!system.reducesMotion());
        tell(u"reduced-motion"_s, 1);
        QTRY_VERIFY_WITH_TIMEOUT(system.reducesMotion(), patience);
    }

    void onlyLightAndDarkOverrideTheSystem_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QPair<bool, bool>>("darkInADarkAndALightSystem");
        using Both = QPair<bool, bool>;
        QTest::newRow("light") << u"light"_s << Both(false, false);
        QTest::newRow("dark") << u"dark"_s << Both(true, true);
        QTest::newRow("system") << u"system"_s << Both(true, false);
        QTest::newRow("any other") << u"sepia"_s << Both(true, false);
    }

    void onlyLightAndDarkOverrideTheSystem()
    {
        using Both = QPair<bool, bool>;
        QFETCH(QString, stored);
        QFETCH(Both, darkInADarkAndALightSystem);
        Preferences preferences(m_folder.filePath(u"preferences.json"_s));
        preferences.setString(u"quillon.colorScheme"_s, stored);
        const SystemAppearance system;
        const Appearance appearance(preferences, system);
        QTRY_VERIFY_WITH_TIMEOUT(system.isDark(), patience);
        QCOMPARE(appearance.isDark(), darkInADarkAndALightSystem.first);
        tellScheme(light);
        QTRY_VERIFY_WITH_TIMEOUT(!system.isDark(), patience);
        QCOMPARE(appearance.isDark(), darkInADarkAndALightSystem.second);
    }

private:
    void tellScheme(uint scheme) { tell(u"color-scheme"_s, scheme); }

    void tell(const QString &key, uint value)
    {
        auto change =
            QDBusMessage::createSignal(portalPath, settingsInterface, u"SettingChanged"_s);
        change << appearanceGroup << key << QVariant::fromValue(QDBusVariant(value));
        QVERIFY(m_desktop.send(change));
    }

    QDBusConnection m_desktop =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
    SettingsPortal m_portal;
    QTemporaryDir m_folder;
};

QTEST_MAIN(SystemAppearanceTest)
#include "SystemAppearanceTest.moc"
