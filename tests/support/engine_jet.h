#pragma once

#include <QByteArray>
#include <QtEndian>

#include <array>
#include <utility>

/// The stream of bytes that hides a Jet file's header from byte 0x18 on. Written apart from the
/// program's own, so that the one shows a fault in the other.
inline std::array<unsigned, 128> jetHeaderStream() {
    const unsigned key[] = {199, 218, 57, 107};
    unsigned box[256];
    for (unsigned i = 0; i < 256; ++i)
        box[i] = i;
    for (unsigned i = 0, j = 0; i < 256; ++i) {
        j = (j + box[i] + key[i % 4]) % 256;
        std::swap(box[i], box[j]);
    }
    std::array<unsigned, 128> stream;
    for (unsigned n = 0, j = 0; n < 128; ++n) {
        const unsigned i = n + 1;
        j = (j + box[i]) % 256;
        std::swap(box[i], box[j]);
        stream[n] = box[(box[i] + box[j]) % 256];
    }
    return stream;
}

/// Writes a byte into the hidden part of a header.
inline void putIntoHeader(QByteArray& file, qsizetype at, char byte) {
    static const auto stream = jetHeaderStream();
    file[at] = static_cast<char>(byte ^ static_cast<char>(stream[static_cast<size_t>(at - 0x18)]));
}

/// A Jet file under a password, which is given in the bytes that the format stores, written by a
/// cipher of the tests' own. `created`: the date in its header.
inline QByteArray withPassword(QByteArray file, QByteArray stored, bool jet4,
                               double created = 38353.75) {
    const auto put = [&](qsizetype at, char byte) { putIntoHeader(file, at, byte); };
    file[0x14] = jet4 ? 1 : 0;
    stored = stored.leftJustified(jet4 ? 40 : 20, '\0');
    if (jet4) {
        std::array<char, 8> date;
        qToLittleEndian(created, date.data());
        for (int i = 0; i < 8; ++i)
            put(0x72 + i, date[size_t(i)]);
        for (int i = 0; i < stored.size(); ++i)
            stored[i] = static_cast<char>(stored[i] ^ (int(created) >> (i % 4 * 8)));
    }
    for (int i = 0; i < stored.size(); ++i)
        put(0x42 + i, stored[i]);
    return file;
}
