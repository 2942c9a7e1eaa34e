// SPDX-License-Identifier: GPL-3.0-or-later
#include "SettingsPresenter.h"

#include "HomeDirectory.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

template<typename Value>
struct Option
{
    QString label;
    Value value;
};

template<typename Value>
using Options = QList<Option<Value>>;

constexpr std::chrono::seconds confirmationTime{2};

const Options<qint64> &historyOptions()
{
    static const Options<qint64> options{
        {u"25"_s, 25}, {u"50"_s, 50}, {u"100"_s, 100}, {u"200"_s, 200}, {u"Unlimited"_s, 0}};
    return options;
}

const Options<QString> &speedOptions()
{
    static const Options<QString> options{{u"Full Speed"_s, u"0"_s}, {u"10 MB/s"_s, u"10M"_s},
                                          {u"5 MB/s"_s, u"5M"_s},    {u"2 MB/s"_s, u"2M"_s},
                                          {u"1 MB/s"_s, u"1M"_s},    {u"500 KB/s"_s, u"500K"_s}};
    return options;
}

const Options<QString> &browserOptions()
{
    static const Options<QString> options{{u"Safari"_s, u"safari"_s},   {u"Chrome"_s, u"chrome"_s},
                                          {u"Firefox"_s, u"firefox"_s}, {u"Brave"_s, u"brave"_s},
                                          {u"Edge"_s, u"edge"_s},       {u"None"_s, u"none"_s}};
    return options;
}

template<typename Value>
QStringList labelsOf(const Options<Value> &options)
{
    QStringList labels;
    for (const auto &option : options)
        labels.append(option.label);
    return labels;
}

template<typename Value>
int indexOf(const Options<Value> &options, const Value &value)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const auto &option) { return option.value == value; });
    return found == options.end() ? -1 : static_cast<int>(found - options.begin());
}

/// Assigns the choice at the index, if there is one.
template<typename Value, typename Property>
void choose(const Options<Value> &options, int index, Property &property)
{
    if (index >= 0 && index < options.size())
        property = options[index].value;
}

} // namespace

SettingsPresenter::SettingsPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal : {&AppState::historyLimitChanged, &AppState::speedLimitChanged,
                              &AppState::cookiesBrowserChanged, &AppState::downloadDirChanged})
        connect(&state, signal, this, &SettingsPresenter::changed);
    connect(&state, &AppState::notificationsEnabledChanged, this, &SettingsPresenter::changed);
    connect(&state, &AppState::showSettingsChanged, this, [this] { setSavedConfirmation(false); });
}

QStringList SettingsPresenter::historyLabels()
{
    return labelsOf(historyOptions());
}

QStringList SettingsPresenter::speedLabels()
{
    return labelsOf(speedOptions());
}

QStringList SettingsPresenter::browserLabels()
{
    return labelsOf(browserOptions());
}

int SettingsPresenter::historyIndex() const
{
    return indexOf(historyOptions(), state().historyLimit());
}

int SettingsPresenter::speedIndex() const
{
    return indexOf(speedOptions(), state().speedLimit());
}

int SettingsPresenter::browserIndex() const
{
    return indexOf(browserOptions(), state().cookiesBrowser());
}

void SettingsPresenter::chooseHistory(int index)
{
    choose(historyOptions(), index, state().historyLimit);
}

void SettingsPresenter::chooseSpeed(int index)
{
    choose(speedOptions(), index, state().speedLimit);
}

void SettingsPresenter::chooseBrowser(int index)
{
    choose(browserOptions(), index, state().cookiesBrowser);
}

void SettingsPresenter::save()
{
    state().saveSettings();
    setSavedConfirmation(true);
    // Every press ends the confirmation at its own time, even a later press's.
    QTimer::singleShot(confirmationTime, Qt::PreciseTimer, this,
                       [this] { setSavedConfirmation(false); });
}

QUrl SettingsPresenter::startFolder() const
{
    const QString folder = state().resolvedDownloadDir();
    return QUrl::fromLocalFile(QFileInfo(folder).isDir() ? folder : homeDirectory());
}

void SettingsPresenter::chooseFolder(const QUrl &folder)
{
    if (folder.isLocalFile())
        state().downloadDir = QDir::cleanPath(folder.toLocalFile());
}

void SettingsPresenter::setSavedConfirmation(bool saved)
{
    m_savedConfirmation = saved;
    Q_EMIT changed();
}
