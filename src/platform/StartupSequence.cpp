// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartupSequence.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <cstdlib>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uint32_t asApplication = 1; // who wants a window to be active

xcb_atom_t atomOf(xcb_connection_t *connection, const QByteArray &name)
{
    const auto request =
        xcb_intern_atom(connection, false, static_cast<uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, request, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_client_message_event_t message(const QWindow &window, xcb_atom_t type, uint8_t bits)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = bits;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = type;
    return event;
}

void sendToRoot(xcb_connection_t *connection, const xcb_client_message_event_t &event,
                uint32_t mask)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, false, root, mask, reinterpret_cast<const char *>(&event));
}

void activate(xcb_connection_t *connection, const QWindow &window, uint32_t time)
{
    auto event = message(window, atomOf(connection, "_NET_ACTIVE_WINDOW"), 32);
    event.data.data32[0] = asApplication;
    event.data.data32[1] = time;
    sendToRoot(connection, event,
               XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

/// In pieces, the first of which has a type of its own, and the last ends with a zero.
void broadcast(xcb_connection_t *connection, const QWindow &window, QByteArray text)
{
    text.append('\0');
    xcb_atom_t type = atomOf(connection, "_NET_STARTUP_INFO_BEGIN");
    const xcb_atom_t next = atomOf(connection, "_NET_STARTUP_INFO");
    constexpr qsizetype size = sizeof(xcb_client_message_data_t);
    for (qsizetype at = 0; at < text.size(); at += size) {
        auto event = message(window, type, 8);
        const QByteArray piece = text.mid(at, size);
        std::copy(piece.cbegin(), piece.cend(), event.data.data8);
        sendToRoot(connection, event, XCB_EVENT_MASK_PROPERTY_CHANGE);
        type = next;
    }
}

} // namespace

void completeStartup(const QWindow &window, const QString &id)
{
    const auto *const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || id.isEmpty())
        return;
    const qsizetype at = id.lastIndexOf(u"_TIME"_s);
    if (const uint time = at < 0 ? 0 : id.mid(at + 5).toUInt(); time > 0)
        activate(x11->connection(), window, time);
    QString quoted = id;
    quoted.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    broadcast(x11->connection(), window, "remove: ID=\"" + quoted.toUtf8() + '"');
    xcb_flush(x11->connection());
}
