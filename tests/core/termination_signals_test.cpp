#include "core/termination_signals.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <csignal>

TEST(TerminationSignals, ComeToTheEventLoop) {
    const TerminationSignals termination;
    QSignalSpy terminated(&termination, &TerminationSignals::terminated);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_TRUE(terminated.isEmpty()) << "not in the middle of work";
        EXPECT_TRUE(terminated.wait());
        terminated.clear();
    }
}
