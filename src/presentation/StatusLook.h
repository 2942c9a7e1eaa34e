// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadStatus.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class AppState;

/// How a download's status looks and reads, for every screen.
struct StatusLook
{
    Q_GADGET
    QML_VALUE_TYPE(statusLook)
    Q_PROPERTY(int kind MEMBER kind)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString tone MEMBER tone)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(double progress MEMBER progress)

public:
    int kind = StatusKind::Idle; ///< StatusKind::Value; Qt 6.4 cannot read enums of gadgets
    QString symbol = {};         ///< empty where something else is drawn
    QString tone = {};           ///< the name of its colour in Theme
    QString text = {};           ///< in words; empty while there is nothing to say
    double progress = 0;         ///< from 0 to 1

    bool operator==(const StatusLook &other) const = default;
};

/// The chip of single mode.
StatusLook chipLook(const DownloadUIStatus &status, bool isPaused);

/// The badge of a queue entry.
StatusLook badgeLook(const DownloadStatus &status, bool isPaused);

/// The button that downloads a search result as video or as audio. Its text is for screen
/// readers.
StatusLook downloadButtonLook(const AppState &state, const QString &resultID, bool isAudio);
