// SPDX-License-Identifier: GPL-3.0-or-later
#include "Presenters.h"

#include <QQmlEngine>

namespace {

// Where an engine keeps them until QML first asks for the singleton.
constexpr const char *engineProperty = "presenters";

} // namespace

Presenters::Presenters(AppState &state)
    : m_state(state)
{
}

void Presenters::offerTo(QQmlEngine &engine)
{
    engine.setProperty(engineProperty, QVariant::fromValue(this));
}

Presenters *Presenters::create(QQmlEngine *qml, QJSEngine * /*js*/)
{
    auto *const presenters = qml->property(engineProperty).value<Presenters *>();
    QJSEngine::setObjectOwnership(presenters, QJSEngine::CppOwnership);
    return presenters;
}
