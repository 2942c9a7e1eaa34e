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
    Q_PROPERTY(bool canFilter READ canFilter NOTIFY infoChanged)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(bool isFiltered READ isFiltered NOTIFY filterChanged)
    Q_PROPERTY(QString unseenLine READ unseenLine NOTIFY countLineChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        ThumbnailRole,
        DurationRole,
        SelectedRole,
        URLRole,
        KnownRole, ///< whether the history has it
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

    /// Whether there are so many entries that a filter helps.
    [[nodiscard]] bool canFilter() const;
    /// Only entries whose title contains it are rows, in any case; empty: all are.
    [[nodiscard]] QString filter() const { return m_filter; }
    void setFilter(const QString &filter);
    [[nodiscard]] bool isFiltered() const { return !m_filter.trimmed().isEmpty(); }
    /// How many selected entries the filter hides, in words; empty if there are none.
    [[nodiscard]] QString unseenLine() const;

    Q_INVOKABLE void toggle(int row);
    /// As toggle(), but with Shift held, everything from the row used before to this one
    /// becomes as that one is.
    Q_INVOKABLE void press(int row);
    /// The keyboard has moved to a row; with Shift held this is as press().
    Q_INVOKABLE void moveTo(int row);
    /// These mean all entries, whatever the filter shows.
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();
    /// Selects the rows and nothing else.
    Q_INVOKABLE void selectShown();

Q_SIGNALS:
    void infoChanged();
    void countLineChanged();
    void filterChanged();

private:
    [[nodiscard]] const VideoInfo &entry(int row) const
    {
        return m_info.playlistEntries[m_shown[row]];
    }
    [[nodiscard]] QList<qsizetype> matches() const;
    void show(const QList<qsizetype> &entries);
    void extendTo(int row);
    void followSelection();
    [[nodiscard]] QSet<QString> known() const;
    void followHistory();

    AppState &m_state;
    VideoInfo m_info;
    QString m_filter;
    QList<qsizetype> m_shown; // the entries that are rows
    QSet<QString> m_urls;     // the entries'
    QSet<QString> m_known;    // of these, those that the history has
    int m_anchor = -1;        // the row used last; -1: none
};
