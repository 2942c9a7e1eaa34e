// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "HistoryDocument.h"
#include "Preferences.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 standardHistoryLimit = 50;

} // namespace

void AppState::loadSettings()
{
    downloadDir = m_preferences.string(settingsKey).value_or(QString());
    speedLimit = m_preferences.string(speedLimitKey).value_or(u"0"_s);
    notificationsEnabled = m_preferences.boolean(notificationsKey).value_or(true);
    cookiesBrowser = m_preferences.string(cookiesBrowserKey).value_or(u"none"_s);
    // A stored 0 means unlimited while the program runs, but at the start it cannot be
    // told from a missing value.
    const qint64 limit = m_preferences.integer(historyLimitKey);
    historyLimit = limit == 0 ? standardHistoryLimit : limit;
}

void AppState::saveSettings()
{
    m_preferences.setString(settingsKey, downloadDir());
    m_preferences.setInteger(historyLimitKey, historyLimit());
    m_preferences.setString(speedLimitKey, speedLimit());
    m_preferences.setBoolean(notificationsKey, notificationsEnabled());
    m_preferences.setString(cookiesBrowserKey, cookiesBrowser());
}

void AppState::loadHistory()
{
    const auto document = m_preferences.blob(historyKey);
    if (!document)
        return;
    if (const auto records = decodeHistory(*document))
        history = *records;
}

void AppState::saveHistory()
{
    m_preferences.setBlob(historyKey, [records = history()] { return encodeHistory(records); });
}

void AppState::addToHistory(const HistoryItem &item)
{
    History records = history();
    records.prepend(item);
    if (historyLimit() >= 1 && historyLimit() < records.size())
        records.erase(records.begin() + historyLimit(), records.end());
    history = std::move(records);
    saveHistory();
}

void AppState::removeFromHistory(const QUuid &id)
{
    History records = history();
    if (records.removeIf([&id](const HistoryItem &record) { return record.id == id; }) == 0)
        return;
    history = std::move(records);
    saveHistory();
}

void AppState::clearHistory()
{
    const History before = history();
    history = History();
    saveHistory();
    m_pending.clear();
    Q_EMIT interruptedDownloadsChanged();
    if (!before.isEmpty())
        Q_EMIT historyCleared(before);
}

void AppState::restoreHistory(const History &before)
{
    history = history() + before;
    saveHistory();
}
