#include "richtext/objects.h"

#include "richtext/ole_package.h"
#include "richtext/rtf_group.h"
#include "richtext/rtf_text.h"

#include <QFile>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

const QString packageClass = u"Package"_s;
const QString equationClass = u"Equation"_s;

// The place that an object asks for in other programs, in twips.
constexpr int objectWidth = 1440;
constexpr int objectHeight = 720;

/// The group of an object; programs that cannot open it show its name.
QString sourceOf(const QString& className, const QByteArray& data, const QString& name) {
    QString source = u"{\\object\\objemb{\\*\\objclass %1}\\objw%2\\objh%3"
                     "{\\*\\objdata\r\n"_s.arg(className)
                         .arg(objectWidth)
                         .arg(objectHeight);
    source += hexLines(writeOleObject({className.toLatin1(), data}));
    source += u"}{\\result{";
    appendText(source, name);
    return source + u"}}}"_s;
}

QTextCharFormat formatAt(const QTextDocument& document, int position) {
    const QTextBlock block = document.findBlock(position);
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().contains(position))
            return it.fragment().charFormat();
    }
    return {};
}

} // namespace

bool holdsObject(const QString& rtf) {
    return rtf.contains(u"{\\object\\objemb");
}

EmbeddedObject objectOf(const QString& source) {
    EmbeddedObject object;
    object.source = source;
    object.className = contentOf(source, Word::ObjectClass).text.trimmed();
    const std::optional<OleObject> ole = readOleObject(contentOf(source, Word::ObjectData).bytes);
    if (ole) {
        object.content = ole->data;
        if (object.className.isEmpty())
            object.className = QString::fromLatin1(ole->className);
    }
    object.name = object.className;
    if (object.className == packageClass) {
        if (std::optional<PackagedFile> file = readPackage(object.content)) {
            object.name = file->name;
            object.content = file->content;
        }
    } else if (object.className == equationClass) {
        object.name = QString::fromUtf8(object.content);
    }
    return object;
}

std::optional<EmbeddedObject> objectAt(const QTextCursor& cursor) {
    const int start = cursor.selectionStart();
    for (const int position : {start, start - 1}) {
        const QTextCharFormat format = formatAt(*cursor.document(), position);
        if (format.objectType() == EmbeddedObjectType)
            return objectOf(format.stringProperty(ObjectSource));
        if (cursor.hasSelection())
            break;
    }
    return std::nullopt;
}

void insertObject(QTextCursor& at, const EmbeddedObject& object) {
    QTextCharFormat format = at.charFormat();
    format.setObjectType(EmbeddedObjectType);
    format.setProperty(ObjectSource, object.source);
    at.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

EmbeddedObject packageOf(const QString& fileName) {
    EmbeddedObject object;
    object.className = packageClass;
    object.name = QFileInfo(fileName).fileName();
    QFile file(fileName);
    if (file.size() > largestPackage || !file.open(QIODevice::ReadOnly))
        return object;
    object.content = file.readAll();
    if (file.error() == QFileDevice::NoError)
        object.source =
            sourceOf(packageClass, writePackage({object.name, object.content}), object.name);
    return object;
}

EmbeddedObject equation(const QString& text) {
    const QByteArray content = text.toUtf8();
    return {.className = equationClass,
            .name = text,
            .content = content,
            .source = sourceOf(equationClass, content, text)};
}

} // namespace richtext
