#include "richtext/rtf_text.h"

#include "richtext/code_pages.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

bool isPlain(QChar c) {
    return c >= u' ' && c < QChar(0x7F) && c != u'\\' && c != u'{' && c != u'}';
}

void appendEscape(QString& rtf, char16_t character) {
    switch (character) {
    case u'\\':
    case u'{':
    case u'}':
        rtf += u'\\';
        rtf += QChar(character);
        break;
    case u'\t':
        rtf += u"\\tab ";
        break;
    case QChar::LineSeparator:
        rtf += u"\\line ";
        break;
    case QChar::Nbsp:
        rtf += u"\\~";
        break;
    case QChar::SoftHyphen:
        rtf += u"\\-";
        break;
    case QChar::ObjectReplacementCharacter: // of an object or a picture that has no source
        break;
    default:
        if (const uchar byte = westernByte(character))
            rtf += u"\\'%1"_s.arg(byte, 2, 16, QLatin1Char('0'));
        else if (character >= 0x7F)
            rtf += u"\\u%1?"_s.arg(static_cast<qint16>(character));
    }
}

bool isForeign(QChar c) {
    return (c < u' ' && c != u'\t') || c == QChar(QChar::ParagraphSeparator) ||
           c == QChar(0xFDD0) || c == QChar(0xFDD1) ||
           c == QChar(QChar::ObjectReplacementCharacter);
}

} // namespace

void appendText(QString& rtf, QStringView text) {
    while (!text.isEmpty()) {
        const auto* const end = std::find_if_not(text.begin(), text.end(), isPlain);
        rtf += QStringView(text.begin(), end);
        text = text.sliced(end - text.begin());
        if (!text.isEmpty()) {
            appendEscape(rtf, text.front().unicode());
            text = text.sliced(1);
        }
    }
}

bool beginsWithEscape(QStringView text) {
    return !text.isEmpty() && !isPlain(text.front());
}

bool isClean(QStringView text) {
    return std::none_of(text.begin(), text.end(), isForeign);
}

QString cleaned(QStringView text) {
    QString clean;
    for (const QChar c : text) {
        if (c == QChar(QChar::ParagraphSeparator) || c == u'\v' || c == u'\f')
            clean += QChar(QChar::LineSeparator);
        else if (!isForeign(c))
            clean += c;
        else if (c > u' ')
            clean += QChar(QChar::ReplacementCharacter);
    }
    return clean;
}

QString cleanedLines(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s);
    text.replace(u'\r', u'\n');
    QStringList lines = text.split(u'\n');
    for (QString& line : lines) {
        if (!isClean(line))
            line = cleaned(line);
    }
    return lines.join(u'\n');
}

} // namespace richtext
