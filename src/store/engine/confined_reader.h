#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>

namespace dao {

// The libraries that read foreign files follow much of what a file says without a check: a made-up
// file can have them read beyond their buffers, end the process, run for ever or take all memory,
// and which file does so differs from one of their versions to the next. All that could be checked
// beforehand would amount to reading the file without them. Therefore they run in a child process.
// Whatever becomes of the child, the worst that comes of it here is that there is no answer.

/// What the reading of a foreign file may take.
struct ReadingBounds {
    std::chrono::seconds computing;    ///< of a processor's time, by the child
    std::chrono::milliseconds waiting; ///< for the whole answer, also where the child has no turn
    qint64 memory;                     ///< bytes, beyond those that this process has mapped
    qint64 answer;                     ///< bytes
};

/// Bounds for an input of this many bytes, many times of what a whole file takes.
ReadingBounds boundsForInput(qint64 size);

/// Runs `read` in a child process and answers the bytes that it returns, exactly those; nothing
/// where it threw, crashed or went beyond a bound. Raises 3051 where the system refuses a process.
///
/// The child is a copy of this process and so has all its data, but none of its open files, streams
/// and threads: `read` takes the input as bytes, or opens it by its path. It can write nowhere but
/// into the answer; what the library prints is lost, and a crash leaves no image behind. As other
/// threads may have held locks at the fork, `read` loads no library (late_library.h) and calls
/// nothing of Qt's beyond values, files and streams.
///
/// The answer comes from a process that may have been taken over by its input: it is checked like
/// the input itself, in counts and sizes too.
std::optional<QByteArray> readConfined(const ReadingBounds& bounds,
                                       const std::function<QByteArray()>& read);

} // namespace dao
