// The child process in which foreign files are read, with readings that go wrong in all ways.

#include "store/engine/confined_reader.h"

#include "store/engine/late_library.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace dao;
using namespace std::chrono_literals;

namespace {

constexpr ReadingBounds Narrow{
    .computing = 1s, .waiting = 60s, .memory = 64 << 20, .answer = 1 << 20};

QByteArray bytesOfSize(qsizetype size) {
    return QByteArray(size, 'x');
}

} // namespace

TEST(ConfinedReader, AnswersTheBytesThatWereRead) {
    for (const qsizetype size : {qsizetype(0), qsizetype(1), qsizetype(Narrow.answer)})
        EXPECT_EQ(readConfined(Narrow, [size] { return bytesOfSize(size); }), bytesOfSize(size));
}

TEST(ConfinedReader, HasNoAnswerWhereTheReadingGoesWrong) {
    const struct {
        const char* name;
        std::function<void()> goWrong;
    } cases[] = {
        {"throws", [] { throw 1; }},
        {"crashes", [] { std::raise(SIGSEGV); }},
        {"ends the process", [] { std::exit(EXIT_SUCCESS); }},
        {"ends it behind half an answer",
         [] {
             for (int file = 0; file < 64; ++file)
                 [[maybe_unused]] const auto written = write(file, "half", 4);
             _exit(EXIT_SUCCESS);
         }},
        {"computes for ever",
         [] {
             for (;;)
                 getppid();
         }},
#ifndef __SANITIZE_ADDRESS__ // under which memory has no bound
        {"takes too much memory", [] { bytesOfSize(2 * Narrow.memory); }},
#endif
    };
    for (const auto& each : cases) {
        QElapsedTimer time;
        time.start();
        EXPECT_FALSE(readConfined(Narrow, [&each] {
            each.goWrong();
            return bytesOfSize(1);
        })) << each.name;
        EXPECT_LT(time.elapsed(), Narrow.waiting.count() / 2) << each.name;
    }
    EXPECT_FALSE(readConfined(Narrow, [] { return bytesOfSize(Narrow.answer + 1); }));
    ReadingBounds impatient = Narrow;
    impatient.waiting = 50ms;
    EXPECT_FALSE(readConfined(impatient, [] {
        pause(); // without computing
        return bytesOfSize(1);
    }));
}

TEST(ConfinedReader, WritesNowhereButIntoTheAnswer) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"made"_s);
    EXPECT_FALSE(readConfined(Narrow, [&path] {
        QFile made(path);
        if (made.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            made.write("x");
        return bytesOfSize(1);
    }));
    EXPECT_EQ(QFile(path).size(), 0);

    int openPipe[2];
    ASSERT_EQ(pipe2(openPipe, O_NONBLOCK), 0);
    readConfined(Narrow, [&openPipe] {
        [[maybe_unused]] const auto written = write(openPipe[1], "x", 1);
        return bytesOfSize(1);
    });
    char byte = 0;
    EXPECT_LT(read(openPipe[0], &byte, 1), 0);
    close(openPipe[0]);
    close(openPipe[1]);
}

TEST(LateLibrary, TellsWhetherAllIsThere) {
    struct Library : LateLibrary {
        Library(const char* name, const char* first, const char* second) : LateLibrary(name) {
            function(first);
            function(second);
        }
    };
    EXPECT_TRUE(Library("libm.so.6", "cos", "sin").isWhole());
    EXPECT_FALSE(Library("libm.so.6", "no_such_function", "sin").isWhole());
    EXPECT_FALSE(Library("libno_such.so.6", "cos", "sin").isWhole());
}
