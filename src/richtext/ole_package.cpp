#include "richtext/ole_package.h"

#include "richtext/code_pages.h"

#include <algorithm>

namespace richtext {

namespace {

constexpr quint32 oleVersion = 0x501;
constexpr quint32 embeddedFormat = 2;
constexpr quint32 noPresentation = 0;
constexpr quint16 packageSignature = 2;
constexpr quint32 embeddedFile = 0x30000;

/// Reads a structure; once something is missing everything reads as empty.
class Reader {
public:
    explicit Reader(const QByteArray& bytes) : m_bytes(bytes) {}

    bool isWhole() const { return m_isWhole; }
    quint32 number(int size) {
        const QByteArray bytes = take(size);
        quint32 value = 0;
        for (qsizetype i = bytes.size(); i-- > 0;)
            value = value << 8 | static_cast<uchar>(bytes.at(i));
        return value;
    }
    QByteArray take(qsizetype size) {
        m_isWhole = m_isWhole && size <= m_bytes.size() - m_at;
        if (!m_isWhole)
            return {};
        m_at += size;
        return m_bytes.sliced(m_at - size, size);
    }
    QByteArray sized() { return take(number(4)); }
    QByteArray zeroEnded() {
        const qsizetype end = m_bytes.indexOf('\0', m_at);
        m_isWhole = m_isWhole && end >= 0;
        const QByteArray text = take(end - m_at);
        take(1);
        return text;
    }
    QString utf16() {
        const QByteArray bytes = take(qsizetype(number(4)) * 2);
        QString text;
        for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
            text +=
                QChar(static_cast<uchar>(bytes.at(i)) | static_cast<uchar>(bytes.at(i + 1)) << 8);
        return text;
    }

private:
    const QByteArray& m_bytes;
    qsizetype m_at = 0;
    bool m_isWhole = true;
};

void addNumber(QByteArray& bytes, quint32 number, int size = 4) {
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

void addSized(QByteArray& bytes, const QByteArray& part) {
    addNumber(bytes, static_cast<quint32>(part.size()));
    bytes += part;
}

QByteArray zeroEnded(QByteArray text) {
    return text.append('\0');
}

void addUtf16(QByteArray& bytes, const QString& text) {
    addNumber(bytes, static_cast<quint32>(text.size()));
    for (const QChar c : text)
        addNumber(bytes, c.unicode(), 2);
}

QByteArray westernBytes(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text) {
        const uchar byte =
            c < QChar(0x80) ? static_cast<uchar>(c.unicode()) : westernByte(c.unicode());
        bytes += byte == 0 ? '?' : static_cast<char>(byte);
    }
    return bytes;
}

/// A file's name without the folders that another system may have put in front.
QString baseName(const QString& path) {
    return path.sliced(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

} // namespace

std::optional<OleObject> readOleObject(const QByteArray& bytes) {
    Reader reader(bytes);
    OleObject object;
    reader.number(4); // the version of the writing library
    const bool isEmbedded = reader.number(4) == embeddedFormat;
    object.className = reader.sized();
    if (object.className.endsWith('\0'))
        object.className.chop(1);
    reader.sized();
    reader.sized();
    object.data = reader.sized();
    if (!isEmbedded || !reader.isWhole())
        return std::nullopt;
    return object;
}

QByteArray writeOleObject(const OleObject& object) {
    QByteArray bytes;
    addNumber(bytes, oleVersion);
    addNumber(bytes, embeddedFormat);
    addSized(bytes, zeroEnded(object.className));
    addSized(bytes, {});
    addSized(bytes, {});
    addSized(bytes, object.data);
    addNumber(bytes, oleVersion);
    addNumber(bytes, noPresentation);
    return bytes;
}

std::optional<PackagedFile> readPackage(const QByteArray& data) {
    Reader reader(data);
    const bool isPackage = reader.number(2) == packageSignature;
    const QByteArray label = reader.zeroEnded();
    reader.zeroEnded(); // where it came from
    const bool holdsFile = reader.number(4) == embeddedFile;
    reader.sized(); // where it is put to be opened
    PackagedFile file{decode(westernCodePage, label), reader.sized()};
    if (!isPackage || !holdsFile || !reader.isWhole())
        return std::nullopt;
    reader.utf16();
    const QString wide = reader.utf16();
    if (reader.isWhole() && !wide.isEmpty())
        file.name = wide;
    file.name = baseName(file.name);
    return file;
}

QByteArray writePackage(const PackagedFile& file) {
    const QByteArray name = zeroEnded(westernBytes(file.name));
    QByteArray bytes;
    addNumber(bytes, packageSignature, 2);
    bytes += name;
    bytes += name;
    addNumber(bytes, embeddedFile);
    addSized(bytes, name);
    addSized(bytes, file.content);
    addUtf16(bytes, file.name);
    addUtf16(bytes, file.name);
    addUtf16(bytes, file.name);
    return bytes;
}

} // namespace richtext
