#include "richtext/rtf_group.h"

#include "richtext/code_pages.h"
#include "richtext/rtf_scanner.h"

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

constexpr double percent = 100;

/// Goes behind the first `word`; answers whether there is one.
bool findWord(Scanner& scanner, Word word) {
    for (Token token = scanner.next(); token != Token::End; token = scanner.next()) {
        if (token == Token::Word && scanner.meaning().word == word)
            return true;
    }
    return false;
}

void addBinary(QByteArray& bytes, QByteArray& digits, QStringView binary) {
    bytes += QByteArray::fromHex(digits);
    digits.clear();
    bytes += binary.toLatin1();
}

} // namespace

GroupContent contentOf(const QString& source, Word word) {
    GroupContent content;
    Scanner scanner(source);
    if (!findWord(scanner, word))
        return content;
    QByteArray digits;
    QSizeF scale(percent, percent);
    for (Token token = scanner.next(); token != Token::End && token != Token::Close;
         token = scanner.next()) {
        if (token == Token::Open) {
            scanner.skipGroup();
            scanner.next();
        } else if (token == Token::Text || token == Token::High) {
            content.text += scanner.text();
            digits += scanner.text().toLatin1();
        } else if (token == Token::Byte) {
            content.text += QChar(decode(westernCodePage, scanner.byte()));
        } else if (token == Token::Word) {
            const double number = scanner.number();
            switch (scanner.meaning().word) {
            case Word::Binary:
                addBinary(content.bytes, digits, scanner.binary());
                break;
            case Word::PictureKind:
                content.kind = scanner.meaning().value;
                break;
            case Word::PictureWidth:
                content.size.setWidth(number);
                break;
            case Word::PictureHeight:
                content.size.setHeight(number);
                break;
            case Word::PictureScaleX:
                scale.setWidth(number);
                break;
            case Word::PictureScaleY:
                scale.setHeight(number);
                break;
            default:
                break;
            }
        }
    }
    content.bytes += QByteArray::fromHex(digits);
    content.size = {content.size.width() * scale.width() / percent,
                    content.size.height() * scale.height() / percent};
    return content;
}

QString hexLines(const QByteArray& bytes) {
    constexpr qsizetype bytesPerLine = 64;
    QString lines;
    lines.reserve(bytes.size() * 2 + bytes.size() / bytesPerLine * 2 + 2);
    for (qsizetype at = 0; at < bytes.size(); at += bytesPerLine)
        lines += QString::fromLatin1(bytes.mid(at, bytesPerLine).toHex()) + u"\r\n"_s;
    return lines;
}

} // namespace richtext
