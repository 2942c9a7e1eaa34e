// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

class ToolKeeper;

/// What stands in the one slot for notices, at the lower edge of the window. Of several
/// that are due the first of this order: an update, a tool that is of no use, a tool that
/// is old.
class NoticePresenter : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(Kind kind READ kind NOTIFY kindChanged)
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
    Q_PROPERTY(QString dismissText READ dismissText NOTIFY changed)

public:
    enum class Kind { none, updating, updated, updateFailed, uselessTool, oldTool };
    Q_ENUM(Kind)

    /// The keeper outlives it.
    explicit NoticePresenter(ToolKeeper &keeper);

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] bool isShown() const { return m_kind != Kind::none; }
    /// What is said once, when the notice comes.
    [[nodiscard]] QString title() const { return m_title; }
    /// What is read; with an update it tells how far that is.
    [[nodiscard]] QString text() const;
    [[nodiscard]] QString symbol() const;
    [[nodiscard]] QString tone() const;
    [[nodiscard]] bool isBusy() const { return kind() == Kind::updating; }
    /// From 0 to 1; less than 0 where there is none.
    [[nodiscard]] double progress() const;
    /// A line for a shell that the user may copy; empty where there is none.
    [[nodiscard]] QString command() const;
    [[nodiscard]] QString copyText() const;
    /// What the notice offers; empty where there is nothing to be done here.
    [[nodiscard]] QString actionText() const;
    [[nodiscard]] QString dismissText() const;

    Q_INVOKABLE void act();
    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void copyCommand();

Q_SIGNALS:
    void changed();
    void kindChanged();
    void titleChanged();

private:
    [[nodiscard]] Kind kindDue() const;
    [[nodiscard]] QString titleDue() const;
    void update();

    ToolKeeper &m_keeper;
    Kind m_kind = Kind::none;
    QString m_title;
    QTimer m_copied; // runs while it is told that the command has been copied
};
