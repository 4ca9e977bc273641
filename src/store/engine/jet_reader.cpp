#include "store/engine/jet_reader.h"

#include "store/engine/error.h"
#include "store/engine/jet_bytes.h"
#include "store/engine/jet_content.h"
#include "store/engine/jet_wire.h"

#include <QDeadlineTimer>
#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <numeric>

#if defined(__SANITIZE_ADDRESS__)
#define ORVA_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVA_ADDRESS_SANITIZER 1
#endif
#endif

namespace dao {
namespace {

constexpr qsizetype VersionOffset = 0x14;

/// The header's hidden part, from 0x18 on, as it was before the engine ciphered it: with RC4 and a
/// key that is the same in all files.
QByteArray clearHeader(QByteArray start, JetFormat format) {
    constexpr std::array<quint8, 4> key{0xC7, 0xDA, 0x39, 0x6B};
    constexpr qsizetype begin = 0x18;
    const qsizetype length = format == JetFormat::Jet3 ? 126 : 128;

    std::array<quint8, 256> state;
    std::iota(state.begin(), state.end(), quint8(0));
    quint8 j = 0;
    for (size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + key[i % key.size()]);
        std::swap(state[i], state[j]);
    }
    quint8 i = 0;
    j = 0;
    for (qsizetype at = begin; at < begin + length; ++at) {
        j = static_cast<quint8>(j + state[++i]);
        std::swap(state[i], state[j]);
        const auto mask = state[static_cast<quint8>(state[i] + state[j])];
        start[at] = static_cast<char>(start[at] ^ static_cast<char>(mask));
    }
    return start;
}

// libmdb follows much of what a file says without a check: a made-up file can have it read beyond
// its buffers, end the process, run for ever or take all memory, and which file does so differs
// from one of its versions to the next. All that could be checked beforehand would amount to
// reading the file without it. Therefore it runs in a child process, with a bound on time and
// memory, that can write nowhere but into the pipe through which the content comes back. Whatever
// becomes of the child, the worst that comes of it here is that the content is not whole.

/// Seconds of computing for a file; many times what a whole one takes.
int timeLimit(const QByteArray& file) {
    constexpr qsizetype bytesASecond = 2 << 20;
    return 5 + static_cast<int>(file.size() / bytesASecond);
}

void limit(int resource, rlim_t most) {
    const rlimit value{most, most};
    setrlimit(static_cast<__rlimit_resource_t>(resource), &value);
}

void limitMemory(const QByteArray& file) {
#ifdef ORVA_ADDRESS_SANITIZER
    Q_UNUSED(file) // its shadow alone takes more address space than any limit could name
#else
    QFile pages(QStringLiteral("/proc/self/statm"));
    if (!pages.open(QIODevice::ReadOnly))
        return;
    const rlim_t mapped = pages.readAll().split(' ').first().toULongLong() *
                          static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    constexpr rlim_t slack = 512 << 20;
    limit(RLIMIT_AS, mapped + slack + 64 * static_cast<rlim_t>(file.size()));
#endif
}

/// Takes from the child process what it does not need for its work, and could do harm with.
void confine(const QByteArray& file, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(EXIT_FAILURE);
    prctl(PR_SET_DUMPABLE, 0); // no image of the file's content is left behind by a crash
    for (const int signal : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGTRAP, SIGXCPU, SIGXFSZ})
        std::signal(signal, SIG_DFL);
    // Nor does any message of libmdb's, which may name what it read.
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, stream);
    // With these a person's environment would change what libmdb reads and in which encoding.
    for (const char* variable : {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET"})
        unsetenv(variable);
    limitMemory(file);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CPU, static_cast<rlim_t>(timeLimit(file)));
}

void writeAll(int pipe, const QByteArray& bytes) {
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count =
            write(pipe, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return;
        written += std::max<ssize_t>(count, 0);
    }
}

[[noreturn]] void runChild(const QByteArray& file, pid_t parent, int pipe) {
    try {
        confine(file, parent);
        writeAll(pipe, packContent(readJetContent(file)));
    } catch (...) {
        _exit(EXIT_FAILURE); // the parent misses the content
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
        const ssize_t count = read(pipe, piece.data(), static_cast<size_t>(piece.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        bytes.append(piece.constData(), count);
    }
    return bytes;
}

} // namespace

bool isJetHeader(const QByteArray& start) {
    static const QByteArray mark("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    return start.size() > VersionOffset && start.startsWith(mark) &&
           (static_cast<JetFormat>(start[VersionOffset]) == JetFormat::Jet3 ||
            static_cast<JetFormat>(start[VersionOffset]) == JetFormat::Jet4);
}

QString jetPassword(const QByteArray& start) {
    constexpr qsizetype headerSize = 4096;
    constexpr qsizetype passwordOffset = 0x42;
    constexpr qsizetype dateOffset = 0x72;
    if (start.size() < headerSize || !isJetHeader(start))
        raiseDamaged();
    const auto format = static_cast<JetFormat>(start[VersionOffset]);
    const QByteArray header = clearHeader(start.first(headerSize), format);

    QByteArray password = header.mid(passwordOffset, format == JetFormat::Jet3 ? 20 : 40);
    if (format == JetFormat::Jet4) {
        // Hidden once more, under the whole days of the date on which the file was made.
        const double date = JetBytes(header).number<double>(dateOffset);
        const qint32 days = std::abs(date) < 2147483647.0 ? static_cast<qint32>(date) : 0;
        std::array<char, sizeof days> mask;
        qToLittleEndian(days, mask.data());
        for (qsizetype i = 0; i < password.size(); ++i)
            password[i] = static_cast<char>(password[i] ^ mask[static_cast<size_t>(i) % 4]);
    }

    QString text;
    const qsizetype width = format == JetFormat::Jet3 ? 1 : 2;
    for (qsizetype at = 0; at < password.size(); at += width) {
        const QByteArray character = password.mid(at, width);
        if (character == QByteArray(width, '\0'))
            break;
        text += jetText(JetBytes(character), format);
    }
    return text;
}

JetContent readJetFile(const QByteArray& file) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw EngineError(CannotOpenFile,
                          QStringLiteral("The file can't be read: the system refuses a pipe."));
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0)
        runChild(file, parent, ends[1]);
    close(ends[1]);
    QByteArray bytes;
    if (child > 0) {
        constexpr qsizetype slack = 128 << 20;
        constexpr int waiting = 10; // times its computing time a child may wait for its turn
        bytes = readAll(ends[0], 16 * file.size() + slack,
                        QDeadlineTimer(qint64(1000) * waiting * timeLimit(file)));
        kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    close(ends[0]);
    if (child < 0)
        throw EngineError(CannotOpenFile,
                          QStringLiteral("The file can't be read: the system refuses a process."));
    return unpackContent(bytes);
}

} // namespace dao
