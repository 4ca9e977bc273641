#include "core/tab_separated.h"

#include <charconv>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The shortest decimal that reads back as the same number.
QString shortest(double number) {
    char text[64];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return QString::fromLatin1(text, end - text);
}

} // namespace

QString escapedText(QString text) {
    text.replace(u'\\', u"\\\\"_s);
    text.replace(u'\t', u"\\t"_s);
    text.replace(u'\n', u"\\n"_s);
    text.replace(u'\r', u"\\r"_s);
    return text;
}

QString escapedValue(const dao::Value& value) {
    if (value.isNull())
        return u"\\N"_s;
    if (value.isBinary())
        return u'x' + QString::fromLatin1(value.toBinary().toHex());
    if (value.isReal())
        return shortest(value.toDouble());
    return escapedText(value.toText());
}

void printLine(const QStringList& texts) {
    QStringList values;
    for (const QString& text : texts)
        values += escapedText(text);
    printEscapedLine(values);
}

void printEscapedLine(const QStringList& values) {
    const QByteArray bytes = values.join(u'\t').toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}
