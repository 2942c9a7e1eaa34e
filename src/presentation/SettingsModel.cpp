// SPDX-License-Identifier: GPL-3.0-or-later
#include "SettingsModel.h"

#include "HomeDirectory.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <chrono>

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
    static const Options<qint64> options{{QStringLiteral("25"), 25},
                                         {QStringLiteral("50"), 50},
                                         {QStringLiteral("100"), 100},
                                         {QStringLiteral("200"), 200},
                                         {QStringLiteral("Unlimited"), 0}};
    return options;
}

const Options<QString> &speedOptions()
{
    static const Options<QString> options{{QStringLiteral("Full Speed"), QStringLiteral("0")},
                                          {QStringLiteral("10 MB/s"), QStringLiteral("10M")},
                                          {QStringLiteral("5 MB/s"), QStringLiteral("5M")},
                                          {QStringLiteral("2 MB/s"), QStringLiteral("2M")},
                                          {QStringLiteral("1 MB/s"), QStringLiteral("1M")},
                                          {QStringLiteral("500 KB/s"), QStringLiteral("500K")}};
    return options;
}

const Options<QString> &browserOptions()
{
    static const Options<QString> options{{QStringLiteral("Safari"), QStringLiteral("safari")},
                                          {QStringLiteral("Chrome"), QStringLiteral("chrome")},
                                          {QStringLiteral("Firefox"), QStringLiteral("firefox")},
                                          {QStringLiteral("Brave"), QStringLiteral("brave")},
                                          {QStringLiteral("Edge"), QStringLiteral("edge")},
                                          {QStringLiteral("None"), QStringLiteral("none")}};
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

/// Assigns what stands at the index, if anything does.
template<typename Value, typename Property>
void choose(const Options<Value> &options, int index, Property &property)
{
    if (index >= 0 && index < options.size())
        property = options[index].value;
}

} // namespace

SettingsModel::SettingsModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal : {&AppState::historyLimitChanged, &AppState::speedLimitChanged,
                              &AppState::cookiesBrowserChanged, &AppState::downloadDirChanged})
        connect(&state, signal, this, &SettingsModel::changed);
}

QStringList SettingsModel::historyLabels()
{
    return labelsOf(historyOptions());
}

QStringList SettingsModel::speedLabels()
{
    return labelsOf(speedOptions());
}

QStringList SettingsModel::browserLabels()
{
    return labelsOf(browserOptions());
}

int SettingsModel::historyIndex() const
{
    return indexOf(historyOptions(), state().historyLimit());
}

int SettingsModel::speedIndex() const
{
    return indexOf(speedOptions(), state().speedLimit());
}

int SettingsModel::browserIndex() const
{
    return indexOf(browserOptions(), state().cookiesBrowser());
}

void SettingsModel::chooseHistory(int index)
{
    choose(historyOptions(), index, state().historyLimit);
}

void SettingsModel::chooseSpeed(int index)
{
    choose(speedOptions(), index, state().speedLimit);
}

void SettingsModel::chooseBrowser(int index)
{
    choose(browserOptions(), index, state().cookiesBrowser);
}

void SettingsModel::save()
{
    state().saveSettings();
    setSavedConfirmation(true);
    // Each press ends the confirmation at its own time, also that of a later one.
    QTimer::singleShot(confirmationTime, Qt::PreciseTimer, this,
                       [this] { setSavedConfirmation(false); });
}

QUrl SettingsModel::startFolder() const
{
    const QString folder = state().resolvedDownloadDir();
    return QUrl::fromLocalFile(QFileInfo(folder).isDir() ? folder : homeDirectory());
}

void SettingsModel::takeFolder(const QUrl &folder)
{
    if (folder.isLocalFile())
        state().downloadDir = QDir::cleanPath(folder.toLocalFile());
}

void SettingsModel::setSavedConfirmation(bool saved)
{
    m_savedConfirmation = saved;
    Q_EMIT changed();
}
