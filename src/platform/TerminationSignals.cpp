// SPDX-License-Identifier: GPL-3.0-or-later
#include "TerminationSignals.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

std::atomic<int> wakeUp = -1;

void wakeOnSignal(int /*signal*/)
{
    const eventfd_t one = 1;
    // Only what is safe in a signal handler; a second signal changes nothing.
    [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof one);
}

void handleWith(void (*handler)(int))
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, handler);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(wakeUp, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [] { QCoreApplication::quit(); });
    handleWith(wakeOnSignal);
}

TerminationSignals::~TerminationSignals()
{
    handleWith(SIG_DFL);
    m_notifier.reset();
    close(wakeUp.exchange(-1));
}
