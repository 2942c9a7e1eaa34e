// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AVPlayer.h"
#include "AppState.h"
#include "Appearance.h"
#include "BrowseModel.h"
#include "DownloadSectionModel.h"
#include "FormatQualityModel.h"
#include "HistoryModel.h"
#include "ModeModel.h"
#include "NoticeModel.h"
#include "PlayerPanelModel.h"
#include "PlayerViewRepresentable.h"
#include "PlaylistModel.h"
#include "QueueControlsModel.h"
#include "QueueModel.h"
#include "QuillonApp.h"
#include "SettingsModel.h"
#include "SingleModeModel.h"
#include "StatePresenter.h"
#include "ToolModel.h"
#include "URLInputModel.h"
#include "VideoInfo.h"

#include <QtQml/qqmlengine.h>
#include <QtQml/qqmlregistration.h>

// What QML is told of C++. It stands here so that the types themselves need not
// know of QML.

/// The one state. Whoever loads a screen says first which object it is.
struct AppStateForQml
{
    Q_GADGET
    QML_FOREIGN(AppState)
    QML_NAMED_ELEMENT(AppState)
    QML_SINGLETON

public:
    static inline AppState *instance = nullptr;

    static AppState *create(QQmlEngine * /*qml*/, QJSEngine * /*js*/)
    {
        QJSEngine::setObjectOwnership(instance, QJSEngine::CppOwnership);
        return instance;
    }
};

struct VideoInfoForQml
{
    Q_GADGET
    QML_FOREIGN(VideoInfo)
    QML_VALUE_TYPE(videoInfo)
};

struct QuillonAppForQml
{
    Q_GADGET
    QML_FOREIGN(QuillonApp)
    QML_NAMED_ELEMENT(QuillonApp)
    QML_UNCREATABLE("There is one, and the program makes it.")
};

struct AppearanceForQml
{
    Q_GADGET
    QML_FOREIGN(Appearance)
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("There is one, and the program makes it.")
};

struct NoticeModelForQml
{
    Q_GADGET
    QML_FOREIGN(NoticeModel)
    QML_NAMED_ELEMENT(NoticeModel)
    QML_UNCREATABLE("There is one slot, and the program makes it.")
};

struct ToolModelForQml
{
    Q_GADGET
    QML_FOREIGN(ToolModel)
    QML_NAMED_ELEMENT(ToolModel)
    QML_UNCREATABLE("There is one, and the program makes it.")
};

struct StatePresenterForQml
{
    Q_GADGET
    QML_FOREIGN(StatePresenter)
    QML_ANONYMOUS
};

struct FormatQualityModelForQml
{
    Q_GADGET
    QML_FOREIGN(FormatQualityModel)
    QML_NAMED_ELEMENT(FormatQualityModel)
    QML_UNCREATABLE("Single mode and the queue have one each.")
};

struct AVPlayerForQml
{
    Q_GADGET
    QML_FOREIGN(AVPlayer)
    QML_NAMED_ELEMENT(AVPlayer)
    QML_UNCREATABLE("There is one, and the state has it.")
};

struct PlayerViewRepresentableForQml
{
    Q_GADGET
    QML_FOREIGN(PlayerViewRepresentable)
    QML_NAMED_ELEMENT(PlayerViewRepresentable)
};

// Presenters as screens make them: on the one state.

class ModeModelForQml : public ModeModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ModeModel)

public:
    ModeModelForQml()
        : ModeModel(*AppStateForQml::instance)
    {
    }
};

class URLInputModelForQml : public URLInputModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(URLInputModel)

public:
    URLInputModelForQml()
        : URLInputModel(*AppStateForQml::instance)
    {
    }
};

class SingleModeModelForQml : public SingleModeModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SingleModeModel)

public:
    SingleModeModelForQml()
        : SingleModeModel(*AppStateForQml::instance)
    {
    }
};

class SingleFormatQualityModelForQml : public SingleFormatQualityModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SingleFormatQualityModel)

public:
    SingleFormatQualityModelForQml()
        : SingleFormatQualityModel(*AppStateForQml::instance)
    {
    }
};

class QueueFormatQualityModelForQml : public QueueFormatQualityModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QueueFormatQualityModel)

public:
    QueueFormatQualityModelForQml()
        : QueueFormatQualityModel(*AppStateForQml::instance)
    {
    }
};

class DownloadSectionModelForQml : public DownloadSectionModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(DownloadSectionModel)

public:
    DownloadSectionModelForQml()
        : DownloadSectionModel(*AppStateForQml::instance)
    {
    }
};

class PlaylistModelForQml : public PlaylistModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(PlaylistModel)

public:
    PlaylistModelForQml()
        : PlaylistModel(*AppStateForQml::instance)
    {
    }
};

class HistoryModelForQml : public HistoryModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(HistoryModel)

public:
    HistoryModelForQml()
        : HistoryModel(*AppStateForQml::instance)
    {
    }
};

class SettingsModelForQml : public SettingsModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SettingsModel)

public:
    SettingsModelForQml()
        : SettingsModel(*AppStateForQml::instance)
    {
    }
};

class QueueModelForQml : public QueueModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QueueModel)

public:
    QueueModelForQml()
        : QueueModel(*AppStateForQml::instance)
    {
    }
};

class QueueControlsModelForQml : public QueueControlsModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QueueControlsModel)

public:
    QueueControlsModelForQml()
        : QueueControlsModel(*AppStateForQml::instance)
    {
    }
};

class BrowseModelForQml : public BrowseModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(BrowseModel)

public:
    BrowseModelForQml()
        : BrowseModel(*AppStateForQml::instance)
    {
    }
};

class PlayerPanelModelForQml : public PlayerPanelModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(PlayerPanelModel)

public:
    PlayerPanelModelForQml()
        : PlayerPanelModel(*AppStateForQml::instance)
    {
    }
};
