// SPDX-License-Identifier: GPL-3.0-or-later
#include "BusName.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Of RequestName, and what it answers.
constexpr uint doNotQueue = 4;
constexpr uint isTaken = 3;

} // namespace

BusName::BusName(const QDBusConnection &bus, QStringList names)
    : m_daemon(busDaemon(bus))
    , m_names(std::move(names))
{
}

BusName::~BusName()
{
    release();
}

void BusName::acquire()
{
    release();
    m_attempt = std::make_unique<QObject>();
    ask(0);
}

void BusName::release()
{
    m_attempt.reset();
    // The bus answers in order, so this also takes back what it has not given yet.
    if (m_asked >= 0)
        m_daemon.call(u"ReleaseName"_s, {m_names[std::exchange(m_asked, -1)]});
}

void BusName::ask(qsizetype index)
{
    m_asked = index;
    m_daemon.call(u"RequestName"_s, {m_names[index], doNotQueue}, m_attempt.get(),
                  [this, next = index + 1](const QDBusMessage &reply) {
                      if (reply.arguments().value(0).toUInt() == isTaken && next < m_names.size())
                          ask(next);
                  });
}
