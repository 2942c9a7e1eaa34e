// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaControl.h"

#include "MprisAdaptors.h"

#include <QCoreApplication>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString busName = u"org.mpris.MediaPlayer2.quillon"_s;

} // namespace

MediaControl::MediaControl(const QDBusConnection &bus)
    : m_bus(bus)
    // Another Quillon, on preferences of its own, may have the first.
    , m_name(bus, {busName, busName + u".instance%1"_s.arg(QCoreApplication::applicationPid())})
{
    new MprisRoot(this);
    m_player = new MprisPlayer(this);
}

MediaControl::~MediaControl()
{
    hide();
}

void MediaControl::show(const NowPlaying &nowPlaying)
{
    const QVariantMap before = m_player->properties();
    m_shown = nowPlaying;
    if (m_isShown) {
        announceChanges(before);
        return;
    }
    m_isShown = true;
    m_bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    m_name.acquire();
}

void MediaControl::hide()
{
    if (!m_isShown)
        return;
    m_isShown = false;
    m_name.release();
    m_bus.unregisterObject(objectPath);
    m_shown = {};
}

void MediaControl::announceChanges(const QVariantMap &before) const
{
    QVariantMap changes;
    const QVariantMap now = m_player->properties();
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (before[property.key()] != *property)
            changes.insert(property.key(), *property);
    }
    if (changes.isEmpty())
        return;
    auto signal = QDBusMessage::createSignal(objectPath, u"org.freedesktop.DBus.Properties"_s,
                                             u"PropertiesChanged"_s);
    signal << u"org.mpris.MediaPlayer2.Player"_s << changes << QStringList();
    m_bus.send(signal);
}
