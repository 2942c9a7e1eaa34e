// SPDX-License-Identifier: GPL-3.0-or-later
#include "Appearance.h"

#include "AccentColors.h"
#include "Preferences.h"
#include "SystemAppearance.h"

using namespace Qt::StringLiterals;

namespace {

const QString colorSchemeKey = u"quillon.colorScheme"_s;
const QString systemScheme = u"system"_s;
const QString lightScheme = u"light"_s;
const QString darkScheme = u"dark"_s;

// The surfaces that accented text stands on: the less favourable of window and card.
constexpr QRgb darkSurface = 0xff2a2a2d;
constexpr QRgb lightSurface = 0xffececee;

} // namespace

Appearance::Appearance(Preferences &preferences, const SystemAppearance &system)
    : m_preferences(preferences)
    , m_system(system)
{
    connect(&m_system, &SystemAppearance::changed, this, &Appearance::changed);
}

QString Appearance::colorSchemeRaw() const
{
    return m_preferences.string(colorSchemeKey).value_or(systemScheme);
}

QString Appearance::themeIcon() const
{
    const QString scheme = colorSchemeRaw();
    if (scheme == lightScheme)
        return u"sun.max.fill"_s;
    if (scheme == darkScheme)
        return u"moon.fill"_s;
    return u"circle.lefthalf.filled"_s;
}

bool Appearance::isDark() const
{
    const QString scheme = colorSchemeRaw();
    return scheme == darkScheme || (scheme != lightScheme && m_system.isDark());
}

bool Appearance::highContrast() const
{
    return m_system.highContrast();
}

bool Appearance::reducesMotion() const
{
    return m_system.reducesMotion();
}

bool Appearance::hasAccent() const
{
    return m_system.accent().isValid();
}

QColor Appearance::accentText() const
{
    return readableOn(m_system.accent(), QColor(isDark() ? darkSurface : lightSurface));
}

QColor Appearance::accentFill() const
{
    return readableOn(m_system.accent(), Qt::white);
}

void Appearance::cycle()
{
    const QString scheme = colorSchemeRaw();
    if (scheme == systemScheme)
        m_preferences.setString(colorSchemeKey, lightScheme);
    else if (scheme == lightScheme)
        m_preferences.setString(colorSchemeKey, darkScheme);
    else
        m_preferences.setString(colorSchemeKey, systemScheme);
    Q_EMIT changed();
}
