// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QAbstractListModel>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

/// The finished downloads as rows. Follows the state row by row: a new record is one
/// insertion, however long the history is.
class HistoryModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        ThumbnailRole,
        PlaceholderRole, ///< the symbol in place of a missing picture
        DateRole,        ///< relative to now; updated by a timer
        DetailsRole,     ///< format and quality
        CanRevealRole,   ///< whether the file's place is known
        URLRole,         ///< of the video
        PathRole,        ///< of the file; empty while it is unknown
    };

    /// The state outlives the model.
    explicit HistoryModel(AppState &state);

    [[nodiscard]] bool isEmpty() const { return m_records.isEmpty(); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Shows a row's saved file.
    Q_INVOKABLE void reveal(int row);
    /// Fetches a row's URL again, in single mode.
    Q_INVOKABLE void refetch(int row);
    Q_INVOKABLE void remove(int row);
    /// Removes all records, also on disk.
    Q_INVOKABLE void clearAll();

Q_SIGNALS:
    void isEmptyChanged();

private:
    void follow();
    bool insertNewest(const AppState::History &records);
    void updateDates();
    void scheduleDates();

    AppState &m_state;
    AppState::History m_records;
    QTimer m_clock;
};
