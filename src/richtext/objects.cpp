#include "richtext/objects.h"

#include <QFileInfo>
#include <QTextCursor>

namespace richtext {

bool holdsObject(const QString& rtf) {
    return rtf.contains(u"{\\object\\objemb");
}

EmbeddedObject objectOf(const QString& source) {
    return {.className = {}, .name = {}, .content = {}, .source = source};
}

std::optional<EmbeddedObject> objectAt(const QTextCursor& cursor) {
    const QTextCharFormat format = cursor.charFormat();
    if (format.objectType() != EmbeddedObjectType)
        return std::nullopt;
    return objectOf(format.stringProperty(ObjectSource));
}

void insertObject(QTextCursor& at, const EmbeddedObject& object) {
    QTextCharFormat format = at.charFormat();
    format.setObjectType(EmbeddedObjectType);
    format.setProperty(ObjectSource, object.source);
    at.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

EmbeddedObject packageOf(const QString& fileName) {
    return {.className = QStringLiteral("Package"),
            .name = QFileInfo(fileName).fileName(),
            .content = {},
            .source = QStringLiteral("{\\object\\objemb{\\*\\objclass Package}}")};
}

EmbeddedObject equation(const QString& text) {
    return {.className = QStringLiteral("Equation"),
            .name = text,
            .content = {},
            .source = QStringLiteral("{\\object\\objemb{\\*\\objclass Equation}}")};
}

} // namespace richtext
