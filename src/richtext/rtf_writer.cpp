#include "richtext/rtf_writer.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace richtext {

namespace {

QString written(const QString& plain) {
    QString text =
        QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}}\r\n"
                       "{\\colortbl ;}\r\n\\pard\\plain\\f0\\fs20 ");
    for (const QChar c : plain) {
        if (c == u'\n')
            text += QStringLiteral("\r\n\\par \\pard\\plain\\f0\\fs20 ");
        else if (c == u'\\' || c == u'{' || c == u'}')
            (text += u'\\') += c;
        else if (c < QChar(0x80))
            text += c;
        else
            text += QStringLiteral("\\u%1?").arg(static_cast<qint16>(c.unicode()));
    }
    return text + QStringLiteral("\r\n\\par }");
}

} // namespace

QString writeDocument(const QTextDocument& document) {
    return written(document.toPlainText());
}

QString writeFragment(const QTextCursor& selection) {
    return written(selection.selection().toPlainText());
}

} // namespace richtext
