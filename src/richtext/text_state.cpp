#include "richtext/text_state.h"

#include "core/font_record.h"

#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace richtext {

namespace {

constexpr double twipsPerLine = 240;
constexpr double WholeLine = 100;
constexpr double pixelsPerIndent = 40; // a document's usual indent width

qint32 toTwips(double pixels) {
    return static_cast<qint32>(std::lround(pixels * twipsPerPixel));
}

} // namespace

size_t listLevel(qint32 leftIndent) {
    const auto level = std::lround(leftIndent / static_cast<double>(twipsPerListLevel));
    return static_cast<size_t>(std::clamp<long>(level, 1, deepestListLevel));
}

QTextBlockFormat makeBlockFormat(const ParagraphState& state) {
    QTextBlockFormat format;
    const auto set = [&](auto setter, qint32 twips) {
        if (twips != 0)
            (format.*setter)(twips / twipsPerPixel);
    };
    if (state.listStyle == 0) {
        set(&QTextBlockFormat::setLeftMargin, state.left);
        set(&QTextBlockFormat::setTextIndent, state.first);
    }
    set(&QTextBlockFormat::setRightMargin, state.right);
    set(&QTextBlockFormat::setTopMargin, state.before);
    set(&QTextBlockFormat::setBottomMargin, state.after);
    if (state.alignment != 0)
        format.setAlignment(Qt::Alignment(state.alignment));
    if (state.lineMultiple == 1 && state.lineSpacing > 0)
        format.setLineHeight(state.lineSpacing * WholeLine / twipsPerLine,
                             QTextBlockFormat::ProportionalHeight);
    if (state.direction != Qt::LayoutDirectionAuto)
        format.setLayoutDirection(static_cast<Qt::LayoutDirection>(state.direction));
    return format;
}

ParagraphState paragraphState(const QTextBlockFormat& format) {
    ParagraphState state;
    state.left = toTwips(format.leftMargin() + format.indent() * pixelsPerIndent);
    state.first = toTwips(format.textIndent());
    state.right = toTwips(format.rightMargin());
    state.before = toTwips(format.topMargin());
    state.after = toTwips(format.bottomMargin());
    if (format.hasProperty(QTextFormat::BlockAlignment))
        state.alignment = static_cast<qint32>(format.alignment().toInt());
    if (format.lineHeightType() == QTextBlockFormat::ProportionalHeight) {
        state.lineSpacing =
            static_cast<qint32>(std::lround(format.lineHeight() * twipsPerLine / WholeLine));
        state.lineMultiple = 1;
    }
    if (format.hasProperty(QTextFormat::LayoutDirection))
        state.direction = format.layoutDirection();
    return state;
}

QString usualFamily(const QTextDocument& document) {
    const QString family = document.defaultFont().family();
    return family.isEmpty() ? FontRecord().name : family;
}

} // namespace richtext
