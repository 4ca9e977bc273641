#include "store/engine/confined_reader.h"

#include "store/engine/error.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QtEndian>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;

#if defined(__SANITIZE_ADDRESS__)
#define ORVA_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVA_ADDRESS_SANITIZER 1
#endif
#endif

namespace dao {
namespace {

/// What the child's end of the pipe becomes there: the first number behind the streams.
constexpr int AnswerPipe = STDERR_FILENO + 1;

void demand(bool isDone) {
    if (!isDone)
        _exit(EXIT_FAILURE); // rather no answer than a reader with more rights than meant
}

void limit(int resource, rlim_t most) {
    const rlimit value{most, most};
    demand(setrlimit(static_cast<__rlimit_resource_t>(resource), &value) == 0);
}

/// What this process has mapped and so its child too, in bytes; 0 where the system does not say.
rlim_t mappedMemory() {
    QFile pages(u"/proc/self/statm"_s);
    if (!pages.open(QIODevice::ReadOnly))
        return 0;
    return pages.readAll().split(' ').first().toULongLong() *
           static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

void limitMemory(rlim_t most) {
#ifdef ORVA_ADDRESS_SANITIZER
    Q_UNUSED(most) // its shadow alone takes more address space than any limit could name
#else
    limit(RLIMIT_AS, most);
#endif
}

/// Leaves the child the pipe alone of all that this process has open.
void dropFiles(int pipe) {
    demand(dup2(pipe, AnswerPipe) == AnswerPipe);
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        demand(dup2(nowhere, stream) == stream);
    demand(close_range(AnswerPipe + 1, ~0U, 0) == 0);
}

/// What the child is told of its parent. All that could be asked beforehand is: in a process just
/// forked the first use of nearly everything costs a page.
struct ParentProcess {
    pid_t id = getpid();
    rlim_t mapped = mappedMemory();
};

/// Takes from the child process what it does not need for its work, and could do harm with.
void confine(const ReadingBounds& bounds, const ParentProcess& parent, int pipe) {
    demand(prctl(PR_SET_PDEATHSIG, SIGKILL) == 0);
    demand(getppid() == parent.id);
    demand(prctl(PR_SET_DUMPABLE, 0) == 0); // a crash leaves no image of the file's content behind
    for (const int signal : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGTRAP, SIGXCPU, SIGXFSZ})
        std::signal(signal, SIG_DFL);
    dropFiles(pipe);
    demand(parent.mapped > 0);
    limitMemory(parent.mapped + static_cast<rlim_t>(bounds.memory));
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CPU, static_cast<rlim_t>(bounds.computing.count()));
}

void writeAll(const char* bytes, qsizetype size) {
    for (qsizetype written = 0; written < size;) {
        const ssize_t count =
            write(AnswerPipe, bytes + written, static_cast<size_t>(size - written));
        demand(count >= 0 || errno == EINTR);
        written += std::max<ssize_t>(count, 0);
    }
}

/// Behind the answer's bytes comes their number, so that what ends early is told from the whole.
using AnswerSize = qint64;

[[noreturn]] void runChild(const ReadingBounds& bounds, const std::function<QByteArray()>& read,
                           const ParentProcess& parent, int pipe) {
    try {
        confine(bounds, parent, pipe);
        const QByteArray bytes = read();
        const AnswerSize size = bytes.size();
        writeAll(bytes.constData(), bytes.size());
        writeAll(reinterpret_cast<const char*>(&size), sizeof size);
    } catch (...) {
        demand(false);
    }
    _exit(EXIT_SUCCESS);
}

/// All that comes through the pipe until its other end closes, or time or measure is over.
QByteArray readAll(int pipe, qsizetype most, QDeadlineTimer deadline) {
    QByteArray bytes;
    QByteArray piece(1 << 16, Qt::Uninitialized);
    while (bytes.size() <= most) {
        pollfd ready{pipe, POLLIN, 0};
        const int left = static_cast<int>(deadline.remainingTime());
        const int state = poll(&ready, 1, left);
        if (state < 0 && errno == EINTR)
            continue;
        if (state <= 0)
            break;
        const ssize_t count = ::read(pipe, piece.data(), static_cast<size_t>(piece.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        bytes.append(piece.constData(), count);
    }
    return bytes;
}

std::optional<QByteArray> receive(int pipe, const ReadingBounds& bounds) {
    constexpr qsizetype tail = sizeof(AnswerSize);
    QByteArray bytes = readAll(pipe, bounds.answer + tail, QDeadlineTimer(bounds.waiting));
    const qsizetype size = bytes.size() - tail;
    if (size < 0 || size > bounds.answer ||
        qFromUnaligned<AnswerSize>(bytes.constData() + size) != size)
        return std::nullopt;
    bytes.truncate(size);
    return bytes;
}

} // namespace

ReadingBounds boundsForInput(qint64 size) {
    constexpr qint64 megabyte = 1 << 20;
    constexpr int turns = 10; // times its computing time a child may wait for its turn
    const std::chrono::seconds computing(5 + size / (2 * megabyte));
    return {.computing = computing,
            .waiting = turns * computing,
            .memory = 512 * megabyte + 64 * size,
            .answer = 128 * megabyte + 16 * size};
}

std::optional<QByteArray> readConfined(const ReadingBounds& bounds,
                                       const std::function<QByteArray()>& read) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw EngineError(CannotOpenFile, u"The file can't be read: the system refuses a pipe."_s);
    const ParentProcess parent;
    const pid_t child = fork();
    if (child == 0)
        runChild(bounds, read, parent, ends[1]);
    close(ends[1]);
    std::optional<QByteArray> answer;
    if (child > 0) {
        answer = receive(ends[0], bounds);
        kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    close(ends[0]);
    if (child < 0)
        throw EngineError(CannotOpenFile,
                          u"The file can't be read: the system refuses a process."_s);
    return answer;
}

} // namespace dao
