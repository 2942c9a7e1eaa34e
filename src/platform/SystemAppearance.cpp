// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemAppearance.h"

#include "BusObject.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QStyleHints>

using namespace Qt::StringLiterals;

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString interfaceGroup = u"org.gnome.desktop.interface"_s;

// Opening this much later is better than opening in the wrong colours and changing them.
constexpr int portalTimeout = 100; // ms

using SettingGroups = QMap<QString, QVariantMap>;

QColor colorFrom(const QVariant &value)
{
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentType() != QDBusArgument::StructureType)
        return {};
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto isPart = [](double part) { return part >= 0 && part <= 1; };
    return isPart(red) && isPart(green) && isPart(blue) ? QColor::fromRgbF(
               static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue))
                                                        : QColor();
}

bool toolkitIsDark()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    const Qt::ColorScheme scheme = QGuiApplication::styleHints()->colorScheme();
    if (scheme != Qt::ColorScheme::Unknown)
        return scheme == Qt::ColorScheme::Dark;
#endif
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness()
        < palette.color(QPalette::WindowText).lightness();
}

} // namespace

SystemAppearance::SystemAppearance()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, this,
            &SystemAppearance::changed);
#endif
    qGuiApp->installEventFilter(this);
    qRegisterMetaType<QDBusVariant>(); // else the connection is refused, without a word
    QDBusConnection::sessionBus().connect(portalService, portalPath, settingsInterface,
                                          u"SettingChanged"_s, this,
                                          SLOT(handleSetting(QString, QString, QDBusVariant)));
    readSettings();
}

bool SystemAppearance::isDark() const
{
    return m_portalIsDark.value_or(toolkitIsDark());
}

bool SystemAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange) {
        Q_EMIT changed();
    }
    return QObject::eventFilter(watched, event);
}

void SystemAppearance::handleSetting(const QString &group, const QString &key,
                                     const QDBusVariant &value)
{
    const QVariant setting = value.variant();
    if (group == appearanceGroup && key == u"color-scheme") {
        const uint scheme = setting.toUInt(); // 0 no preference, 1 dark, 2 light
        m_portalIsDark = scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
    } else if (group == appearanceGroup && key == u"accent-color") {
        m_accent = colorFrom(setting);
    } else if (group == appearanceGroup && key == u"reduced-motion") {
        m_reducesMotion = setting.toUInt() == 1;
    } else if (group == appearanceGroup && key == u"contrast") {
        m_highContrast = setting.toUInt() == 1;
    } else if (group == interfaceGroup && key == u"enable-animations") {
        m_animates = setting.toBool();
    } else {
        return;
    }
    Q_EMIT changed(); // NOLINT(readability-misleading-indentation): it is not
}

void SystemAppearance::readSettings()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    const BusObject portal(bus, portalService, portalPath, settingsInterface);
    const QString method = u"ReadAll"_s;
    const QVariantList arguments{QStringList{appearanceGroup, interfaceGroup}};
    const QDBusMessage reply = portal.callAndWait(method, arguments, portalTimeout);
    handleSettings(reply);
    // The desktop may still be starting its portal.
    if (QDBusError(reply).type() == QDBusError::NoReply) {
        portal.call(method, arguments, this,
                    [this](const QDBusMessage &late) { handleSettings(late); });
    }
}

void SystemAppearance::handleSettings(const QDBusMessage &reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return;
    const auto groups = qdbus_cast<SettingGroups>(reply.arguments().constFirst());
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        for (auto setting = group->begin(); setting != group->end(); ++setting)
            handleSetting(group.key(), setting.key(), QDBusVariant(*setting));
    }
}
