#include "office/text_width.h"

#include <algorithm>

namespace {

/// The widths of the characters from the blank to '~', in thousandths of the font's size.
constexpr int characterWidths[] = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
constexpr int digitWidth = 556;
constexpr int capitalWidth = 722;
constexpr double boldFactor = 1.1;

int widthOf(QChar character) {
    constexpr char16_t firstOfWide = 0x1100; // Korean; beyond it Chinese and pictures
    const char16_t code = character.unicode();
    if (code >= u' ' && code <= u'~')
        return characterWidths[code - u' '];
    if (character.isMark() || character.isLowSurrogate())
        return 0;
    if (code >= firstOfWide)
        return 2 * digitWidth;
    return character.isUpper() ? capitalWidth : digitWidth;
}

} // namespace

double textWidth(QStringView text, bool bold) {
    int widest = 0;
    int width = 0;
    for (const QChar character : text) {
        width = character == u'\n' ? 0 : width + widthOf(character);
        widest = std::max(widest, width);
    }
    return (bold ? boldFactor : 1) * widest / digitWidth;
}
