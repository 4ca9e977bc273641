#pragma once

#include <QByteArray>
#include <QString>
#include <QTextFormat>

#include <optional>

class QTextCursor;

namespace richtext {

/// An object or a picture in a document is one character U+FFFC, whose format has one of these
/// object types and keeps the RTF group that it came from as the property ObjectSource (a QString).
/// A screen registers a handler for both types with the document's layout.
enum ObjectType {
    EmbeddedObjectType = QTextFormat::UserObject + 1,
    PictureType = QTextFormat::UserObject + 2,
};
constexpr int ObjectSource = QTextFormat::UserProperty + 1;

/// An embedded object ("{\object\objemb").
struct EmbeddedObject {
    QString className;  ///< "Package", "Equation", or what another program's object is
    QString name;       ///< what to show: a packaged file's name, an equation's text
    QByteArray content; ///< a packaged file's bytes; the object's own data for other classes
    QString source;     ///< the group as it stood
};

/// Whether a rich text holds an embedded object.
bool holdsObject(const QString& rtf);

/// The object in an RTF group that begins with "{\object"; what cannot be made out stays empty.
EmbeddedObject objectOf(const QString& source);

/// The object character that the cursor selects or that stands behind or, failing that, before it.
std::optional<EmbeddedObject> objectAt(const QTextCursor& cursor);

/// Puts an object at the cursor, in place of its selection.
void insertObject(QTextCursor& at, const EmbeddedObject& object);

/// The most bytes that a packaged file may have.
constexpr qint64 largestPackage = qint64{32} * 1024 * 1024;

/// An object of the class "Package" that holds a file's name and bytes, as other programs on other
/// systems open it too. Without a source where the file cannot be read or is too large.
EmbeddedObject packageOf(const QString& fileName);

/// An object of the class "Equation" that shows a text.
EmbeddedObject equation(const QString& text);

} // namespace richtext
