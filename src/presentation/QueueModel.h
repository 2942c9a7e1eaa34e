// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QAbstractListModel>
#include <QHash>
#include <QtQml/qqmlregistration.h>

/// The queue as rows. A report about one entry changes only that row, however long the
/// queue is; entries that come and go are insertions and removals.
class QueueModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int readyCount READ readyCount NOTIFY readyCountChanged)
    Q_PROPERTY(QString downloadButtonLabel READ downloadButtonLabel NOTIFY downloadButtonChanged)
    Q_PROPERTY(bool canDownload READ canDownload NOTIFY downloadButtonChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        ThumbnailRole,
        PlaceholderRole, ///< the symbol in place of a missing picture
        StatusLineRole,  ///< what the row says beside the badge, on one line
        StatusTextRole,  ///< the same with all of its lines
        BadgeRole,       ///< a StatusLook
        CanRevealRole,   ///< whether the file's place is known
        URLRole,         ///< of the video, or what was entered
        PathRole,        ///< of a finished file; else empty
        MessageRole,     ///< why the download has failed; else empty
    };

    /// The state outlives the model.
    explicit QueueModel(AppState &state);

    [[nodiscard]] int count() const { return static_cast<int>(m_items.size()); }
    /// How many entries are waiting.
    [[nodiscard]] int readyCount() const { return m_readyCount; }
    /// Counts only waiting entries, although a run takes finished ones, too.
    [[nodiscard]] QString downloadButtonLabel() const;
    [[nodiscard]] bool canDownload() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Shows a finished entry's saved file; does nothing for others.
    Q_INVOKABLE void reveal(int row);
    Q_INVOKABLE void remove(int row);

Q_SIGNALS:
    void countChanged();
    void readyCountChanged();
    void downloadButtonChanged();

private:
    struct Row
    {
        std::shared_ptr<DownloadItem> item;
        bool isReady;
    };

    void follow();
    void removeMissing(const AppState::Queue &queue);
    void append(const AppState::Queue &added);
    void reset(const AppState::Queue &queue);
    void renumber();
    void followPause();
    void followItem(const DownloadItem *item);
    void changeReadyCount(int change);

    [[nodiscard]] static bool isReady(const DownloadItem &item);
    Row watched(const std::shared_ptr<DownloadItem> &item);

    AppState &m_state;
    QList<Row> m_items;
    QHash<const DownloadItem *, int> m_rows;
    int m_readyCount = 0;
};
