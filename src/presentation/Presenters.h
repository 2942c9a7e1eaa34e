// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ActionBarPresenter.h"
#include "BrowseModel.h"
#include "DownloadSectionPresenter.h"
#include "FormatQualityPresenter.h"
#include "HistoryModel.h"
#include "LinkPresenter.h"
#include "ModePresenter.h"
#include "PlayerPanelPresenter.h"
#include "PlaylistModel.h"
#include "QueueControlsPresenter.h"
#include "QueueModel.h"
#include "SettingsPresenter.h"
#include "SingleModePresenter.h"
#include "URLInputPresenter.h"

class QJSEngine;
class QQmlEngine;

/// What the screens show of one application state: a presenter or list model for each part
/// of a screen, made when a screen first asks for it. Main thread.
class Presenters : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(ActionBarPresenter *actionBar READ actionBar CONSTANT)
    Q_PROPERTY(BrowseModel *browse READ browse CONSTANT)
    Q_PROPERTY(DownloadSectionPresenter *downloadSection READ downloadSection CONSTANT)
    Q_PROPERTY(FormatQualityPresenter *singleFormat READ singleFormat CONSTANT)
    Q_PROPERTY(FormatQualityPresenter *queueFormat READ queueFormat CONSTANT)
    Q_PROPERTY(HistoryModel *history READ history CONSTANT)
    Q_PROPERTY(LinkPresenter *links READ links CONSTANT)
    Q_PROPERTY(ModePresenter *mode READ mode CONSTANT)
    Q_PROPERTY(PlayerPanelPresenter *playerPanel READ playerPanel CONSTANT)
    Q_PROPERTY(PlaylistModel *playlist READ playlist CONSTANT)
    Q_PROPERTY(QueueControlsPresenter *queueControls READ queueControls CONSTANT)
    Q_PROPERTY(QueueModel *queue READ queue CONSTANT)
    Q_PROPERTY(SettingsPresenter *settings READ settings CONSTANT)
    Q_PROPERTY(SingleModePresenter *singleMode READ singleMode CONSTANT)
    Q_PROPERTY(URLInputPresenter *urlInput READ urlInput CONSTANT)

public:
    /// The state outlives them.
    explicit Presenters(AppState &state);

    /// Makes them the engine's singleton, which they outlive.
    void offerTo(QQmlEngine &engine);
    static Presenters *create(QQmlEngine *qml, QJSEngine *js);

    ActionBarPresenter *actionBar() { return presenter<ActionBarPresenter>(); }
    BrowseModel *browse() { return presenter<BrowseModel>(); }
    DownloadSectionPresenter *downloadSection() { return presenter<DownloadSectionPresenter>(); }
    FormatQualityPresenter *singleFormat() { return presenter<SingleFormatQualityPresenter>(); }
    FormatQualityPresenter *queueFormat() { return presenter<QueueFormatQualityPresenter>(); }
    HistoryModel *history() { return presenter<HistoryModel>(); }
    LinkPresenter *links() { return presenter<LinkPresenter>(); }
    ModePresenter *mode() { return presenter<ModePresenter>(); }
    PlayerPanelPresenter *playerPanel() { return presenter<PlayerPanelPresenter>(); }
    PlaylistModel *playlist() { return presenter<PlaylistModel>(); }
    QueueControlsPresenter *queueControls() { return presenter<QueueControlsPresenter>(); }
    QueueModel *queue() { return presenter<QueueModel>(); }
    SettingsPresenter *settings() { return presenter<SettingsPresenter>(); }
    SingleModePresenter *singleMode() { return presenter<SingleModePresenter>(); }
    URLInputPresenter *urlInput() { return presenter<URLInputPresenter>(); }

private:
    template<typename Presenter>
    Presenter *presenter();

    AppState &m_state;
};

template<typename Presenter>
Presenter *Presenters::presenter()
{
    if (auto *const made = findChild<Presenter *>({}, Qt::FindDirectChildrenOnly))
        return made;
    auto *const made = new Presenter(m_state);
    made->setParent(this);
    return made;
}
