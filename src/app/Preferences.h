// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Worker.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

/// The user's preferences: a flat file of keys whose values keep their types. Used on one
/// thread. Another thread writes the file, atomically and soon after each change; flush()
/// waits for it. A failed write, on a full disk for example, is not reported; it is
/// retried with the next change, every half minute, and by flush().
class Preferences
{
    Q_DISABLE_COPY_MOVE(Preferences)

public:
    /// Makes a blob's bytes; called on any thread. Nothing: the blob stays as it was.
    using BlobEncoder = std::function<std::optional<QByteArray>()>;

    /// The current user's store; it ends with the application object.
    static Preferences &standard();
    static QString standardPath();

    explicit Preferences(QString path,
                         std::chrono::milliseconds retryInterval = std::chrono::seconds(30));
    ~Preferences();

    [[nodiscard]] QString path() const { return m_path; }

    /// A text, or a number as text, where a boolean counts as 1 or 0; nothing for
    /// other kinds.
    [[nodiscard]] std::optional<QString> string(const QString &key) const;
    /// A number, where a boolean counts as 1 or 0, or a text made of digits; else 0.
    [[nodiscard]] qint64 integer(const QString &key) const;
    /// Only a real boolean: neither the text "false" nor the number 1 is one.
    [[nodiscard]] std::optional<bool> boolean(const QString &key) const;
    [[nodiscard]] std::optional<QByteArray> blob(const QString &key) const;

    void setString(const QString &key, const QString &value);
    void setInteger(const QString &key, qint64 value);
    void setBoolean(const QString &key, bool value);
    /// Takes a function rather than bytes, so that a long document is made on
    /// the writing thread.
    void setBlob(const QString &key, BlobEncoder encode);
    void remove(const QString &key);

    /// Writes what is still unwritten; returns when that has succeeded or failed.
    void flush();

private:
    struct Content
    {
        QByteArray values; // all but the blobs, as JSON
        QMap<QString, BlobEncoder> blobs;
    };

    void load();
    void set(const QString &key, const QJsonValue &value);
    void scheduleWrite();
    void retry();
    void write();
    void keepUnwritten(Content content);
    bool writeFile(const Content &content);

    const QString m_path;
    QJsonObject m_values; // all but the blobs
    QMap<QString, BlobEncoder> m_blobs;
    QTimer m_retry; // runs while something may be unwritten

    std::mutex m_mutex;
    std::optional<Content> m_unwritten;

    // Belongs to the writing thread once it has started:
    bool m_isDamaged = false;
    QJsonObject m_encodedBlobs; // as last encoded successfully

    Worker m_writer; // last: its thread ends before the members above are destroyed
};
