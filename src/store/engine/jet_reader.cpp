#include "store/engine/jet_reader.h"

#include "store/engine/confined_reader.h"
#include "store/engine/jet_bytes.h"
#include "store/engine/jet_content.h"
#include "store/engine/jet_mdb.h"
#include "store/engine/jet_wire.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>

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

/// What the child process does.
QByteArray readAndPack(const QByteArray& file) {
    // With these a person's environment would change what libmdb reads and in which encoding.
    for (const char* variable : {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET"})
        unsetenv(variable);
    return packContent(readJetContent(file));
}

} // namespace

bool isJetHeader(const QByteArray& start) {
    static const QByteArray mark("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    return start.size() > VersionOffset && start.startsWith(mark) &&
           (static_cast<JetFormat>(start[VersionOffset]) == JetFormat::Jet3 ||
            static_cast<JetFormat>(start[VersionOffset]) == JetFormat::Jet4);
}

void checkJetPages(const QByteArray& start, qint64 size) {
    constexpr qint64 fewestPages = 3; // the header, the room that is taken, the catalogue
    const bool isJet3 = static_cast<JetFormat>(start[VersionOffset]) == JetFormat::Jet3;
    const qint64 pageSize = isJet3 ? 2048 : 4096;
    const QByteArrayView behind = QByteArrayView(start).sliced(std::min(start.size(), pageSize));
    const bool isVoid =
        std::all_of(behind.begin(), behind.end(), [](char byte) { return byte == 0; });
    if (size < fewestPages * pageSize || size % pageSize != 0 || isVoid)
        raiseDamaged();
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
    JetFile::loadLibrary();
    const std::optional<QByteArray> content =
        readConfined(boundsForInput(file.size()), [&file] { return readAndPack(file); });
    if (!content)
        raiseDamaged();
    return unpackContent(*content);
}

} // namespace dao
