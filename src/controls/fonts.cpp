#include "controls/fonts.h"

#include <QFontInfo>

QFont toFont(const FontRecord& record) {
    QFont font(record.name, record.size, record.bold ? QFont::Bold : QFont::Normal, record.italic);
    font.setUnderline(record.underline);
    return font;
}

FontRecord toFontRecord(const QFont& font, qint32 colour) {
    return {.name = font.family(),
            .bold = font.bold(),
            .italic = font.italic(),
            .underline = font.underline(),
            .size = qRound(QFontInfo(font).pointSizeF()),
            .colour = colour};
}
