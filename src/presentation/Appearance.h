// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class Preferences;
class SystemAppearance;

/// How the window looks: the user's choice of light, dark or system, and the desktop's
/// own setting. The choice is stored when it changes.
class Appearance : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QString colorSchemeRaw READ colorSchemeRaw NOTIFY changed)
    Q_PROPERTY(QString themeIcon READ themeIcon NOTIFY changed)
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY changed)
    Q_PROPERTY(bool hasAccent READ hasAccent NOTIFY changed)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QColor accentFill READ accentFill NOTIFY changed)

public:
    Appearance(Preferences &preferences, const SystemAppearance &system);

    /// "system", "light", "dark", or whatever else is stored, which counts as "system".
    [[nodiscard]] QString colorSchemeRaw() const;
    [[nodiscard]] QString themeIcon() const;
    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool reducesMotion() const;
    [[nodiscard]] bool highContrast() const;
    /// Whether the desktop tells an accent colour.
    [[nodiscard]] bool hasAccent() const;
    /// The desktop's accent, readable on the window's background.
    [[nodiscard]] QColor accentText() const;
    /// The desktop's accent as a background for white text.
    [[nodiscard]] QColor accentFill() const;

    /// From system to light, to dark, and back.
    Q_INVOKABLE void cycle();

Q_SIGNALS:
    void changed();

private:
    Preferences &m_preferences;
    const SystemAppearance &m_system;
};
