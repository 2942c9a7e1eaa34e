// SPDX-License-Identifier: GPL-3.0-or-later
#include "BusProbe.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <optional>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

struct SocketAddress
{
    sockaddr_un address{};
    socklen_t length = 0;
};

/// The name of a socket; one that begins with a null byte is in no file system.
std::optional<SocketAddress> socketNamed(const QByteArray &name)
{
    SocketAddress found;
    if (name.isEmpty() || name.size() >= qsizetype(sizeof found.address.sun_path))
        return std::nullopt;
    found.address.sun_family = AF_UNIX;
    std::copy(name.cbegin(), name.cend(), std::begin(found.address.sun_path));
    found.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + size_t(name.size()));
    return found;
}

/// That of the first address in a list like "unix:path=/run/user/1000/bus,guid=…;…".
std::optional<SocketAddress> socketOf(const QByteArray &addresses)
{
    const QByteArray first = addresses.split(';').constFirst();
    if (!first.startsWith("unix:"))
        return std::nullopt;
    const QByteArrayList parts = first.mid(5).split(',');
    for (const QByteArray &part : parts) {
        const QByteArray value = QByteArray::fromPercentEncoding(part.mid(part.indexOf('=') + 1));
        if (part.startsWith("path="))
            return socketNamed(value);
        if (part.startsWith("abstract="))
            return socketNamed('\0' + value);
    }
    return std::nullopt;
}

/// Where the bus is looked for that no variable names.
QByteArray standardAddress()
{
    return "unix:path=" + qgetenv("XDG_RUNTIME_DIR").toPercentEncoding("/") + "/bus";
}

} // namespace

bool sessionBusAnswers(std::chrono::milliseconds patience)
{
    QByteArray addresses = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (addresses.isEmpty())
        addresses = standardAddress();
    const auto bus = socketOf(addresses);
    if (!bus)
        return true;
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0)
        return true;
    bool answers = true;
    if (connect(descriptor, reinterpret_cast<const sockaddr *>(&bus->address), bus->length) == 0) {
        const QByteArray greeting =
            QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n";
        pollfd wanted{.fd = descriptor, .events = POLLIN, .revents = 0};
        answers = send(descriptor, greeting.constData(), size_t(greeting.size()), MSG_NOSIGNAL) > 0
            && poll(&wanted, 1, static_cast<int>(patience.count())) > 0;
    } else if (errno == EAGAIN) {
        answers = false; // many others wait for it already
    }
    close(descriptor);
    return answers;
}
