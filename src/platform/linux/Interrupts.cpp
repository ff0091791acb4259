#include "platform/Interrupts.h"

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace mosaro::platform {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> g_descriptor{-1};

/// Only what a signal handler may do.
void onSignal(int number)
{
    const int savedError = errno;
    const std::uint64_t one = 1;
    const auto written = ::write(g_descriptor.load(), &one, sizeof one);
    static_cast<void>(written);
    std::signal(number, SIG_DFL);
    errno = savedError;
}

} // namespace

Interrupts::Interrupts(QObject* parent)
    : QObject(parent), m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_notifier(std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read))
{
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        if (::read(m_descriptor, &count, sizeof count) == sizeof count) {
            Q_EMIT interrupted();
        }
    });
    g_descriptor.store(m_descriptor);
    for (const int number : kSignals) {
        std::signal(number, onSignal);
    }
}

Interrupts::~Interrupts()
{
    for (const int number : kSignals) {
        std::signal(number, SIG_DFL);
    }
    g_descriptor.store(-1);
    m_notifier.reset();
    ::close(m_descriptor);
}

} // namespace mosaro::platform
