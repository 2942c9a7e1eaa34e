// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QObject>

#include <optional>

class QDBusMessage;
class QDBusVariant;

/// How the user wants programs to look, as the desktop portal or else the toolkit reports
/// it. Main thread.
class SystemAppearance : public QObject
{
    Q_OBJECT
    Q_MOC_INCLUDE(<QDBusVariant>)

public:
    /// Asks the portal, and waits for its answer no longer than anyone would notice; a
    /// later answer counts as a change.
    SystemAppearance();

    [[nodiscard]] bool isDark() const;

    /// The desktop's accent colour; invalid where it has none.
    [[nodiscard]] QColor accent() const { return m_accent; }

    /// Whether the user wants no animations.
    [[nodiscard]] bool reducesMotion() const { return m_reducesMotion || !m_animates; }

    /// Whether the user wants texts and edges that stand out.
    [[nodiscard]] bool highContrast() const { return m_highContrast; }

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void handleSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void readSettings();
    void handleSettings(const QDBusMessage &reply);

    std::optional<bool> m_portalIsDark; // unset: the portal has no opinion
    QColor m_accent;
    bool m_reducesMotion = false; // as the portal says
    bool m_highContrast = false;
    bool m_animates = true; // as the desktop's own setting says
};
