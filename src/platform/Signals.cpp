#include "platform/Signals.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace tessel {

namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGINT, SIGHUP};
// A handler can reach nothing but globals; it does no more than write to this descriptor.
volatile int g_descriptor = -1;

void onEndSignal(int) {
    const int before = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(g_descriptor, &one, sizeof one);
    errno = before;
}

void handleWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : kEndSignals) {
        // Who started the process so that it outlives its terminal wants it so.
        struct sigaction before {};
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
            ::sigaction(number, &action, nullptr);
        }
    }
}

} // namespace

EndSignals::EndSignals() : m_descriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    if (m_descriptor < 0) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        if (::read(m_descriptor, &count, sizeof count) == static_cast<ssize_t>(sizeof count)) {
            emit requested();
        }
    });
    g_descriptor = m_descriptor;
    handleWith(onEndSignal);
}

EndSignals::~EndSignals() {
    if (m_descriptor >= 0) {
        handleWith(SIG_DFL);
        g_descriptor = -1;
        ::close(m_descriptor);
    }
}

} // namespace tessel
