#include "qt/services/SessionEnd.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace vardel {

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGHUP, SIGINT};

// What a signal handler may reach: it writes a byte to the one end, the event loop reads the other.
std::array<int, 2> ends = {-1, -1};

SessionEnd* living = nullptr;

void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(ends[0], &byte, 1);
}

}  // namespace

void SessionEnd::OnExit() {
    if (living != nullptr) std::exchange(living, nullptr)->onDeath_();
}

SessionEnd::SessionEnd(std::function<void()> onEnd, std::function<void()> onSignal,
                       std::function<void()> onDeath)
    : onEnd_(std::move(onEnd)), onSignal_(std::move(onSignal)), onDeath_(std::move(onDeath)) {
    [[maybe_unused]] static const int registered = std::atexit(OnExit);
    living = this;
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, this, [this] { onEnd_(); },
        Qt::DirectConnection);
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
    auto* notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
    QObject::connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        signalled_ = true;
        onEnd_();
        onSignal_();
    });
    for (const int number : Signals) std::signal(number, OnSignal);
}

SessionEnd::~SessionEnd() {
    living = nullptr;
    for (const int number : Signals) std::signal(number, SIG_DFL);
    for (int& end : ends) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

}  // namespace vardel
