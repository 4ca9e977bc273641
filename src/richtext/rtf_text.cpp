#include "richtext/rtf_text.h"

#include "richtext/code_pages.h"

#include <algorithm>

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
            rtf += QStringLiteral("\\'%1").arg(byte, 2, 16, QLatin1Char('0'));
        else if (character >= 0x7F)
            rtf += QStringLiteral("\\u%1?").arg(static_cast<qint16>(character));
    }
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

} // namespace richtext
