#include "support/engine_kill.h"

#include <gtest/gtest.h>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

void endAfter(int microseconds) {
    std::signal(SIGALRM, SIG_DFL);
    itimerval timer{};
    timer.it_value.tv_usec = microseconds;
    setitimer(ITIMER_REAL, &timer, nullptr);
}

int statusOf(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int lastReportOf(const std::function<void(const std::function<void(int)>&)>& work) {
    int reports[2];
    EXPECT_EQ(pipe(reports), 0);
    const pid_t child = fork();
    if (child == 0) {
        work([&reports](int number) { (void)!write(reports[1], &number, sizeof number); });
        _exit(0);
    }
    close(reports[1]);
    int last = 0;
    for (int number = 0; read(reports[0], &number, sizeof number) == sizeof number;)
        last = number;
    close(reports[0]);
    waitpid(child, nullptr, 0);
    return last;
}
