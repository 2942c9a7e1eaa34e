// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How far the single-mode download has come. Its progress, speed and remaining
/// time are properties of the application state, not of this status.
class DownloadUIStatus
{
public:
    enum class Case { idle, downloading, processing, done, failed };

    static DownloadUIStatus idle() { return DownloadUIStatus(Case::idle); }
    static DownloadUIStatus downloading() { return DownloadUIStatus(Case::downloading); }
    static DownloadUIStatus processing() { return DownloadUIStatus(Case::processing); }
    static DownloadUIStatus done(const QString &path) { return DownloadUIStatus(Case::done, path); }
    static DownloadUIStatus failed(const QString &message)
    {
        return DownloadUIStatus(Case::failed, message);
    }

    [[nodiscard]] Case kind() const { return m_kind; }
    /// Of `done`: the folder that the run wrote to.
    [[nodiscard]] QString path() const { return m_kind == Case::done ? m_text : QString(); }
    /// Of `failed`: what went wrong.
    [[nodiscard]] QString message() const { return m_kind == Case::failed ? m_text : QString(); }

    bool operator==(const DownloadUIStatus &other) const = default;

private:
    explicit DownloadUIStatus(Case kind, QString text = {})
        : m_kind(kind)
        , m_text(std::move(text))
    {
    }

    Case m_kind;
    QString m_text;
};
