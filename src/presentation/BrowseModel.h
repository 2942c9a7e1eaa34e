// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

/// What a search has found, as rows, or what takes their place while there are none.
class BrowseModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(Area area READ area NOTIFY areaChanged)
    Q_PROPERTY(QString errorText READ errorText NOTIFY areaChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY areaChanged)

public:
    enum class Area { Searching, Failed, Empty, Results };
    Q_ENUM(Area)

    enum Role {
        TitleRole = Qt::UserRole,
        UploaderRole,
        DurationRole,
        ThumbnailRole,
        IsNowPlayingRole,
        URLRole,   ///< of the watch page
        VideoRole, ///< a StatusLook: of the button that downloads it as video
        AudioRole, ///< a StatusLook: of the one that downloads it as audio
    };

    /// The state outlives the model.
    explicit BrowseModel(AppState &state);

    [[nodiscard]] Area area() const;
    [[nodiscard]] QString errorText() const;
    [[nodiscard]] QString countText() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Plays a row, or stops it.
    Q_INVOKABLE void play(int row);
    Q_INVOKABLE void download(int row, bool isAudio);

Q_SIGNALS:
    void areaChanged();

private:
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < rowCount(); }
    void follow();
    void updateRoles(const QList<int> &roles);

    AppState &m_state;
    AppState::Results m_results;
};
