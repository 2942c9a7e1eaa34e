// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QMetaMethod>
#include <QMetaProperty>

/// Writes down the names of the properties that are assigned.
class AssignmentRecorder : public QObject
{
    Q_OBJECT

public:
    explicit AssignmentRecorder(AppState &state)
    {
        const QMetaObject &meta = AppState::staticMetaObject;
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("note()"));
        for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
            connect(&state, meta.property(index).notifySignal(), this, slot);
    }

    QStringList take() { return std::exchange(m_names, {}); }

public Q_SLOTS:
    void note()
    {
        const QByteArray signal = sender()->metaObject()->method(senderSignalIndex()).name();
        const QString name = QString::fromLatin1(signal.chopped(7)); // "Changed"
        if (name != u"displayedDownloadStatus") // follows others, is never assigned
            m_names.append(name);
    }

private:
    QStringList m_names;
};
