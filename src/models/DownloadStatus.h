// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How far one queue entry, or one download from a search row, has come. Made
/// by the functions named after the cases; what a case does not carry is empty.
class DownloadStatus
{
public:
    enum class Case { waiting, fetching, downloading, processing, done, failed };

    static DownloadStatus waiting();
    static DownloadStatus fetching();
    /// `progress` from 0 to 1; `speed` and `eta` as the tool prints them.
    static DownloadStatus downloading(double progress, const QString &speed, const QString &eta);
    static DownloadStatus processing();
    static DownloadStatus done(const QString &path);
    static DownloadStatus failed(const QString &message);

    [[nodiscard]] Case kind() const { return m_kind; }
    [[nodiscard]] double progress() const { return m_progress; }
    [[nodiscard]] QString speed() const { return m_speed; }
    [[nodiscard]] QString eta() const { return m_eta; }
    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QString message() const { return m_message; }

    /// The status in a word, as a badge shows it.
    [[nodiscard]] QString badgeLabel() const;

    bool operator==(const DownloadStatus &other) const = default;

private:
    explicit DownloadStatus(Case kind)
        : m_kind(kind)
    {
    }

    Case m_kind;
    double m_progress = 0;
    QString m_speed;
    QString m_eta;
    QString m_path;
    QString m_message;
};
