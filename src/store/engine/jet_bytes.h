#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QtEndian>

namespace dao {

/// Raises 3343, as everything does that finds a Jet file's bytes at odds with each other.
[[noreturn]] void raiseDamaged();

/// A stretch of a Jet file's bytes. A read that would leave it raises 3343.
class JetBytes {
public:
    JetBytes(const void* data, qsizetype size) : m_bytes(static_cast<const char*>(data), size) {}
    explicit JetBytes(const QByteArray& bytes) : m_bytes(bytes) {}

    qsizetype size() const { return m_bytes.size(); }
    const char* data() const { return m_bytes.data(); }
    QByteArray toByteArray() const { return m_bytes.toByteArray(); }

    JetBytes from(qsizetype start) const { return mid(start, size() - start); }
    JetBytes mid(qsizetype start, qsizetype length) const {
        if (start < 0 || length < 0 || start > size() || length > size() - start)
            raiseDamaged();
        return {m_bytes.data() + start, length};
    }
    /// The number of this type, little endian as all of them, that starts at `start`.
    template<typename Number>
    Number number(qsizetype start) const {
        return qFromLittleEndian<Number>(mid(start, sizeof(Number)).data());
    }

private:
    QByteArrayView m_bytes;
};

/// The two formats that are read, under libmdb's numbers.
enum class JetFormat : quint8 { Jet3 = 0, Jet4 = 1 };

/// The text that a field's or a name's bytes stand for: code page 1252 in Jet 3; in Jet 4 UTF-16,
/// or, behind the mark FF FE, stretches with a byte a character that a zero byte ends and begins.
QString jetText(JetBytes bytes, JetFormat format);

/// A point in time, in days since 30 December 1899, as "yyyy-mm-dd hh:mm:ss", to the nearest
/// second. One outside the years 100 to 9999 raises 3343.
QString jetDate(double days);

/// The 16 bytes of a GUID as "{00112233-4455-6677-8899-AABBCCDDEEFF}".
QString jetGuid(JetBytes bytes);

} // namespace dao
