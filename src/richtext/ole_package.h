#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace richtext {

// The bytes of "\objdata": an embedded object of OLE 1.0, whose own data for the class "Package"
// are those that the packager of Windows writes and opens. Numbers are little endian, texts end in
// a zero byte:
//
//     4 0x501, 4 format (2 embedded), then three times 4 length, text: class, topic, item;
//     4 length, the object's own data; 4 0x501, 4 format (0: no picture follows)
//
//     package: 2 (2), label, path it came from, 4 (0x30000: embedded), 4 length, temporary path,
//     4 length, the file's bytes; newer ones once more in UTF-16, each with 4 for its length:
//     temporary path, label, path it came from

struct OleObject {
    QByteArray className;
    QByteArray data;
};

/// Nothing for bytes that are not an embedded object.
std::optional<OleObject> readOleObject(const QByteArray& bytes);
QByteArray writeOleObject(const OleObject& object);

struct PackagedFile {
    QString name;
    QByteArray content;
};

/// Nothing for bytes that are not a package with a file in it.
std::optional<PackagedFile> readPackage(const QByteArray& data);

/// Keeps the name alone: where the file lies on the teacher's computer is nobody's business.
QByteArray writePackage(const PackagedFile& file);

} // namespace richtext
