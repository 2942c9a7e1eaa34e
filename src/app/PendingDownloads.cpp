// SPDX-License-Identifier: GPL-3.0-or-later
#include "PendingDownloads.h"

#include "Preferences.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString key = u"quillon.interrupted"_s;
// A file that somebody else has written may hold any number.
constexpr qsizetype most = 10000;

// Called on the writing thread.
QByteArray encoded(const QList<PendingDownload> &downloads)
{
    QJsonArray entries;
    for (const PendingDownload &download : downloads) {
        entries.append(QJsonObject{{u"url"_s, download.url},
                                   {u"title"_s, download.title},
                                   {u"format"_s, download.format},
                                   {u"quality"_s, download.quality}});
    }
    return QJsonDocument(entries).toJson(QJsonDocument::Compact);
}

} // namespace

PendingDownloads::PendingDownloads(Preferences &preferences)
    : m_preferences(preferences)
{
    load();
}

void PendingDownloads::forgetInterrupted()
{
    m_interrupted.clear();
    save();
}

int PendingDownloads::begin(const QList<PendingDownload> &downloads)
{
    ++m_lastRun;
    for (const PendingDownload &download : downloads)
        m_entries.append({m_lastRun, download});
    save();
    return m_lastRun;
}

void PendingDownloads::endFile(int run)
{
    const auto first = std::find_if(m_entries.begin(), m_entries.end(),
                                    [run](const Entry &entry) { return entry.run == run; });
    if (first == m_entries.end())
        return;
    m_entries.erase(first);
    save();
}

void PendingDownloads::endRun(int run)
{
    if (m_entries.removeIf([run](const Entry &entry) { return entry.run == run; }) > 0)
        save();
}

void PendingDownloads::clear()
{
    if (m_entries.isEmpty() && m_interrupted.isEmpty())
        return;
    m_entries.clear();
    m_interrupted.clear();
    save();
}

void PendingDownloads::load()
{
    const QByteArray document = m_preferences.blob(key).value_or(QByteArray());
    const QJsonArray entries = QJsonDocument::fromJson(document).array();
    for (const auto &entry : entries) {
        const QJsonObject object = entry.toObject();
        const PendingDownload download{.url = object[u"url"].toString(),
                                       .title = object[u"title"].toString(),
                                       .format = object[u"format"].toString(),
                                       .quality = object[u"quality"].toString()};
        if (!download.url.isEmpty() && m_interrupted.size() < most)
            m_interrupted.append(download);
    }
}

void PendingDownloads::save()
{
    QList<PendingDownload> all = m_interrupted;
    for (const Entry &entry : std::as_const(m_entries))
        all.append(entry.download);
    if (all.isEmpty())
        m_preferences.remove(key);
    else
        m_preferences.setBlob(key, [all] { return encoded(all); });
}
