#include "richtext/plain_text.h"

#include <QRegularExpression>

namespace richtext {

QString plainText(const QString& rtf) {
    if (!rtf.startsWith(u"{\\rtf"))
        return rtf;
    QString text = rtf.mid(rtf.indexOf(u"\\pard"));
    static const QRegularExpression unicode(QStringLiteral("\\\\u(-?[0-9]+)\\?"));
    static const QRegularExpression words(QStringLiteral("\\\\[a-z]+-?[0-9]* ?|[{}\r\n]"));
    text.replace(QStringLiteral("\r\n\\par }"), QString());
    text.replace(QStringLiteral("\r\n\\par "), QStringLiteral("\x01"));
    text.remove(words);
    return text.replace(u'\x01', u'\n');
}

bool isEmptyText(const QString& plain) {
    return plain.isEmpty() || plain == u" " || plain == u"\n" || plain == u"\r\n";
}

} // namespace richtext
