#include "core/termination_signals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace {

constexpr int endingSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// From the handler, which may do next to nothing, to the event loop.
int terminationPipe[2] = {-1, -1};

void noteTermination(int) {
    const char anything = 0;
    [[maybe_unused]] const ssize_t written = write(terminationPipe[1], &anything, 1);
}

void handleEndingSignals(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : endingSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals() {
    if (pipe2(terminationPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // they end the program as ever
    auto* notifier = new QSocketNotifier(terminationPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char anything;
        while (read(terminationPipe[0], &anything, 1) > 0) {
        }
        emit terminated();
    });
    handleEndingSignals(noteTermination);
}

TerminationSignals::~TerminationSignals() {
    handleEndingSignals(SIG_DFL);
    for (int& end : terminationPipe) {
        if (end >= 0)
            close(end);
        end = -1;
    }
}
