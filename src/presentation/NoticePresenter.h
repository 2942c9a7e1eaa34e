// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Notice.h"

#include <QTimer>
#include <QtQml/qqmlregistration.h>

/// What stands in the one slot for notices, at the lower edge of the window: the notice of
/// the first source that has one.
class NoticePresenter : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(bool isShown READ isShown NOTIFY kindChanged)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString tone READ tone NOTIFY changed)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    Q_PROPERTY(QString command READ command NOTIFY changed)
    Q_PROPERTY(QString copyText READ copyText NOTIFY changed)
    Q_PROPERTY(QString actionText READ actionText NOTIFY changed)
    Q_PROPERTY(QString setting READ setting NOTIFY changed)
    Q_PROPERTY(QString dismissText READ dismissText NOTIFY changed)

public:
    /// The sources outlive it.
    explicit NoticePresenter(QList<NoticeSource *> sources);

    [[nodiscard]] bool isShown() const { return !m_notice.kind.isEmpty(); }
    [[nodiscard]] QString title() const { return m_notice.title; }
    [[nodiscard]] QString text() const { return m_notice.text; }
    [[nodiscard]] QString symbol() const { return m_notice.symbol; }
    [[nodiscard]] QString tone() const { return m_notice.tone; }
    [[nodiscard]] bool isBusy() const { return m_notice.isBusy; }
    [[nodiscard]] double progress() const { return m_notice.progress; }
    [[nodiscard]] QString command() const { return m_notice.command; }
    [[nodiscard]] QString copyText() const;
    [[nodiscard]] QString actionText() const { return m_notice.actionText; }
    [[nodiscard]] QString setting() const { return m_notice.setting; }
    [[nodiscard]] QString dismissText() const { return m_notice.dismissText; }

    Q_INVOKABLE void act();
    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void copyCommand();

Q_SIGNALS:
    void changed();
    void kindChanged();
    void titleChanged();

private:
    [[nodiscard]] Notice firstDue() const;
    void update();

    const QList<NoticeSource *> m_sources;
    Notice m_notice;
    QTimer m_copied; // runs while the button says that the command has been copied
};
