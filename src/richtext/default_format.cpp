#include "richtext/default_format.h"

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

qsizetype digitsEnd(QStringView text, qsizetype from) {
    while (from < text.size() && text.at(from) >= u'0' && text.at(from) <= u'9')
        ++from;
    return from;
}

/// "f" and the number that the font table gives to the font.
QString fontWord(const QString& rtf, const QString& name) {
    const qsizetype found = name.isEmpty() ? -1 : rtf.indexOf(name);
    const qsizetype entry = found < 0 ? -1 : rtf.lastIndexOf(u'{', found);
    if (entry < 0 || rtf.mid(entry + 1, 2) != u"\\f")
        return u"f0"_s;
    const qsizetype number = entry + 3;
    return u'f' + rtf.mid(number, digitsEnd(rtf, number) - number);
}

/// The number of the entry in the colour table, or that behind its last where it has none.
qsizetype colourNumber(const QString& rtf, qint32 colour) {
    const QString digits =
        u"%1"_s.arg(static_cast<quint32>(colour), 6, 16, QLatin1Char('0')).right(6);
    const auto part = [&](qsizetype at) { return digits.mid(at, 2).toInt(nullptr, 16); };
    const QString entry = u"\\red%1\\green%2\\blue%3;"_s.arg(part(4)).arg(part(2)).arg(part(0));
    const qsizetype begin = rtf.indexOf(u"{\\colortbl");
    const qsizetype end = begin < 0 ? -1 : rtf.indexOf(u'}', begin);
    if (end < 0)
        return 0;
    const QStringView table = QStringView(rtf).mid(begin, end - begin);
    const qsizetype found = table.indexOf(entry);
    return (found < 0 ? table : table.first(found)).count(u';');
}

} // namespace

QString SetDefaultFormat(const QString& rtf, const FontRecord& font) {
    static const QString paragraphHead = u"\\pard\\plain\\"_s;
    const qsizetype head = rtf.lastIndexOf(paragraphHead);
    if (head < 0 || rtf.indexOf(u"\\fs", head) < 0)
        return rtf;
    QString text = rtf.left(head + paragraphHead.size());
    text += fontWord(rtf, font.name);
    text += u"\\cf%1\\fs%2"_s.arg(colourNumber(rtf, font.colour)).arg(font.size * 2);
    if (font.bold)
        text += u"\\b"_s;
    if (font.italic)
        text += u"\\i"_s;
    if (font.underline)
        text += u"\\ul"_s;
    return text + u"\\par }\r\n"_s;
}

} // namespace richtext
