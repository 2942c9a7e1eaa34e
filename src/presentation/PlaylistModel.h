// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

/// The entries of one playlist as cards, and which of them are selected. The selection
/// itself belongs to the state; entries with the same id share it.
class PlaylistModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(VideoInfo info READ info WRITE setInfo NOTIFY infoChanged)
    Q_PROPERTY(QString heading READ heading NOTIFY infoChanged)
    Q_PROPERTY(QString countLine READ countLine NOTIFY countLineChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        ThumbnailRole,
        DurationRole,
        SelectedRole,
        URLRole,
    };

    /// The state outlives the model.
    explicit PlaylistModel(AppState &state);

    [[nodiscard]] VideoInfo info() const { return m_info; }
    void setInfo(const VideoInfo &info);
    [[nodiscard]] QString heading() const;
    /// How many of the entries are selected, in words.
    [[nodiscard]] QString countLine() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();

Q_SIGNALS:
    void infoChanged();
    void countLineChanged();

private:
    void followSelection();

    AppState &m_state;
    VideoInfo m_info;
};
