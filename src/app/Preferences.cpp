// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preferences.h"

#include "ApplicationSingleton.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <semaphore>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A blob is an object with one of these members, which distinguishes it from text and
// keeps a short one readable. JSON inside JSON, with every quotation mark escaped, takes
// twice as long to read back as compressed data.
const QString textMember = u"utf8"_s;
const QString compressedMember = u"compressed"_s;
constexpr QFile::Permissions ownerAlone = QFile::ReadOwner | QFile::WriteOwner;
constexpr qsizetype longestText = qsizetype{64} * 1024;

QJsonValue blobValue(const QByteArray &blob)
{
    if (blob.size() <= longestText && QUtf8StringView(blob).isValidUtf8())
        return QJsonObject{{textMember, QString::fromUtf8(blob)}};
    constexpr int fastest = 1;
    const QByteArray compressed = qCompress(blob, fastest);
    return QJsonObject{{compressedMember, QString::fromLatin1(compressed.toBase64())}};
}

std::optional<QByteArray> blobFrom(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    if (object[textMember].isString())
        return object[textMember].toString().toUtf8();
    if (!object[compressedMember].isString())
        return {};
    const QByteArray blob =
        qUncompress(QByteArray::fromBase64(object[compressedMember].toString().toLatin1()));
    return blob.isEmpty() ? std::nullopt : std::optional(blob);
}

QString numberText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

/// A free name beside the file.
QString asideName(const QString &path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss"_s);
    QString name = u"%1.damaged-%2"_s.arg(path, stamp);
    for (int number = 2; QFile::exists(name); ++number)
        name = u"%1.damaged-%2-%3"_s.arg(path, stamp).arg(number);
    return name;
}

} // namespace

Preferences &Preferences::standard()
{
    return applicationSingleton<Preferences>([] { return new Preferences(standardPath()); });
}

QString Preferences::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/quillon/preferences.json"_s;
}

Preferences::Preferences(QString path, std::chrono::milliseconds retryInterval)
    : m_path(std::move(path))
{
    m_retry.setInterval(retryInterval);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { retry(); });
    load();
}

Preferences::~Preferences()
{
    flush();
}

std::optional<QString> Preferences::string(const QString &key) const
{
    const QJsonValue value = m_values[key];
    if (value.isString())
        return value.toString();
    if (value.isDouble()) {
        const double number = value.toDouble();
        return number == std::trunc(number) ? QString::number(value.toInteger())
                                            : numberText(number);
    }
    if (value.isBool())
        return value.toBool() ? u"1"_s : u"0"_s;
    return {};
}

qint64 Preferences::integer(const QString &key) const
{
    const QJsonValue value = m_values[key];
    if (value.isString())
        return value.toString().trimmed().toLongLong();
    if (value.isBool())
        return value.toBool() ? 1 : 0;
    // toInteger() has no answer for fractions and for numbers beyond 64 bits.
    const double number = std::clamp(std::trunc(value.toDouble()), -9.0e18, 9.0e18);
    return value.toInteger(static_cast<qint64>(number));
}

std::optional<bool> Preferences::boolean(const QString &key) const
{
    const QJsonValue value = m_values[key];
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<QByteArray> Preferences::blob(const QString &key) const
{
    const auto encode = m_blobs.value(key);
    return encode ? encode() : std::nullopt;
}

void Preferences::setString(const QString &key, const QString &value)
{
    set(key, value);
}

void Preferences::setInteger(const QString &key, qint64 value)
{
    set(key, value);
}

void Preferences::setBoolean(const QString &key, bool value)
{
    set(key, value);
}

void Preferences::setBlob(const QString &key, BlobEncoder encode)
{
    m_values.remove(key);
    m_blobs[key] = std::move(encode);
    scheduleWrite();
}

void Preferences::remove(const QString &key)
{
    m_values.remove(key);
    m_blobs.remove(key);
    scheduleWrite();
}

void Preferences::flush()
{
    std::binary_semaphore written(0);
    m_writer.post([this, &written] {
        write();
        written.release();
    });
    written.acquire();
}

void Preferences::load()
{
    QFile file(m_path);
    if (!file.exists())
        return;
    file.setPermissions(
        ownerAlone); // an earlier release, or another program, may have left it readable to others
    const QJsonDocument document =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()) : QJsonDocument();
    m_isDamaged = !document.isObject();
    m_values = document.object();
    const QStringList keys = m_values.keys();
    for (const QString &key : keys) {
        if (const auto bytes = blobFrom(m_values[key])) {
            m_blobs[key] = [content = *bytes] { return std::optional(content); };
            m_values.remove(key);
        }
    }
}

void Preferences::set(const QString &key, const QJsonValue &value)
{
    m_blobs.remove(key);
    m_values[key] = value;
    scheduleWrite();
}

void Preferences::scheduleWrite()
{
    {
        const std::scoped_lock lock(m_mutex);
        // As bytes, so that no JSON value is shared between threads.
        m_unwritten = {.values = QJsonDocument(m_values).toJson(), .blobs = m_blobs};
    }
    m_writer.post([this] { write(); });
    m_retry.start();
}

void Preferences::retry()
{
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_unwritten) {
            m_retry.stop();
            return;
        }
    }
    m_writer.post([this] { write(); });
}

void Preferences::write()
{
    std::optional<Content> content;
    {
        const std::scoped_lock lock(m_mutex);
        content = std::exchange(m_unwritten, std::nullopt);
    }
    // Otherwise an earlier write has included this change.
    if (content && !writeFile(*content))
        keepUnwritten(std::move(*content));
}

void Preferences::keepUnwritten(Content content)
{
    const std::scoped_lock lock(m_mutex);
    if (!m_unwritten) // otherwise there has been a newer change
        m_unwritten = std::move(content);
}

bool Preferences::writeFile(const Content &content)
{
    QJsonObject values = QJsonDocument::fromJson(content.values).object();
    for (auto blob = content.blobs.begin(); blob != content.blobs.end(); ++blob) {
        if (const auto bytes = (*blob)())
            m_encodedBlobs[blob.key()] = blobValue(*bytes);
        if (m_encodedBlobs.contains(blob.key()))
            values[blob.key()] = m_encodedBlobs[blob.key()];
    }
    QDir().mkpath(QFileInfo(m_path).path());
    if (m_isDamaged) {
        // Whatever can still be saved belongs to the user.
        if (!QFile::rename(m_path, asideName(m_path)) && QFile::exists(m_path))
            return false;
        m_isDamaged = false;
    }
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // What somebody watches is nobody else's business.
    file.setPermissions(ownerAlone);
    file.write(QJsonDocument(values).toJson());
    return file.commit();
}
