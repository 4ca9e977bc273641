#include "figures.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

struct Run {
    double seconds;
    qint64 done;
};

Run runOnce(Work& work) {
    using Clock = std::chrono::steady_clock;
    work.prepare();
    const Clock::time_point start = Clock::now();
    work.run();
    const std::chrono::duration<double> taken = Clock::now() - start;
    return {taken.count(), work.finish()};
}

/// A side's shortest time; nothing else on the machine makes it shorter.
double shortestRun(const Figure& figure) {
    double shortest = std::numeric_limits<double>::infinity();
    for (int round = 0; round <= figure.rounds; ++round) {
        const double seconds = runOnce(*figure.value).seconds;
        if (round > 0)
            shortest = std::min(shortest, seconds);
    }
    return shortest;
}

} // namespace

Measurement measure(const Figure& figure) {
    if (!figure.floor)
        return {shortestRun(figure), FrameSeconds};
    const double never = std::numeric_limits<double>::infinity();
    Measurement shortest{never, never};
    for (int round = 0; round <= figure.rounds; ++round) {
        const bool valueFirst = round % 2 == 0;
        const Run first = runOnce(valueFirst ? *figure.value : *figure.floor);
        const Run second = runOnce(valueFirst ? *figure.floor : *figure.value);
        if (first.done != second.done)
            throw std::runtime_error(u"%1: the two sides differ, %2 and %3"_s.arg(figure.name)
                                         .arg(first.done)
                                         .arg(second.done)
                                         .toStdString());
        if (round == 0)
            continue;
        shortest.value = std::min(shortest.value, (valueFirst ? first : second).seconds);
        shortest.floor = std::min(shortest.floor, (valueFirst ? second : first).seconds);
    }
    return shortest;
}
