#include "controls/selection_format.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>

namespace {

/// A stretch of characters of one format.
struct Run {
    int start;
    int end;
    QTextCharFormat format;
};

/// The blocks that the selection touches, from the first to the last.
template<typename Visit>
void eachBlock(const QTextCursor& selection, Visit visit) {
    QTextBlock block = selection.document()->findBlock(selection.selectionStart());
    while (block.isValid() && block.position() <= selection.selectionEnd()) {
        visit(block);
        block = block.next();
    }
}

QList<Run> runsOf(const QTextCursor& selection) {
    QList<Run> runs;
    eachBlock(selection, [&](const QTextBlock& block) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int start = std::max(fragment.position(), selection.selectionStart());
            const int end =
                std::min(fragment.position() + fragment.length(), selection.selectionEnd());
            if (start < end)
                runs.append({start, end, fragment.charFormat()});
        }
    });
    return runs;
}

CharOffset offsetOf(const QTextCharFormat& format) {
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript:
        return CharOffset::Superscript;
    case QTextCharFormat::AlignSubScript:
        return CharOffset::Subscript;
    default:
        return CharOffset::None;
    }
}

SelectionFormat lookOf(const QTextCharFormat& format, const QFont& font) {
    const QStringList families = format.fontFamilies().toStringList();
    const bool hasColour = format.foreground().style() != Qt::NoBrush;
    return {.fontName = families.isEmpty() ? font.family() : families.first(),
            .fontSize = format.fontPointSize() > 0 ? format.fontPointSize() : font.pointSizeF(),
            .bold = format.fontWeight() >= QFont::DemiBold,
            .italic = format.fontItalic(),
            .underline = format.fontUnderline(),
            .colour = hasColour ? format.foreground().color() : QColor(),
            .offset = offsetOf(format),
            .bullet = {}};
}

template<typename Value>
void keepCommon(std::optional<Value>& common, const std::optional<Value>& other) {
    if (common != other)
        common.reset();
}

void keepCommon(SelectionFormat& common, const SelectionFormat& other) {
    keepCommon(common.fontName, other.fontName);
    keepCommon(common.fontSize, other.fontSize);
    keepCommon(common.bold, other.bold);
    keepCommon(common.italic, other.italic);
    keepCommon(common.underline, other.underline);
    keepCommon(common.colour, other.colour);
    keepCommon(common.offset, other.offset);
}

std::optional<bool> bulletOf(const QTextCursor& selection) {
    bool some = false;
    bool all = true;
    eachBlock(selection, [&](const QTextBlock& block) {
        const bool bullet = block.textList() != nullptr;
        some = some || bullet;
        all = all && bullet;
    });
    return some == all ? std::optional(all) : std::nullopt;
}

} // namespace

SelectionFormat readFormat(const QTextCursor& selection, const QTextCharFormat& typing,
                           const QFont& font) {
    const QList<Run> runs = runsOf(selection);
    SelectionFormat common = lookOf(runs.isEmpty() ? typing : runs.first().format, font);
    for (const Run& run : runs)
        keepCommon(common, lookOf(run.format, font));
    common.bullet = bulletOf(selection);
    return common;
}

void changeFormat(QTextCursor selection, const std::function<void(QTextCharFormat&)>& change) {
    QTextCursor range(selection.document());
    selection.beginEditBlock();
    for (Run& run : runsOf(selection)) {
        change(run.format);
        range.setPosition(run.start);
        range.setPosition(run.end, QTextCursor::KeepAnchor);
        range.setCharFormat(run.format);
    }
    // An empty paragraph keeps its format in its end.
    eachBlock(selection, [&](const QTextBlock& block) {
        const int end = block.position() + block.length() - 1;
        if (end < selection.selectionStart() || end > selection.selectionEnd())
            return;
        QTextCharFormat format = block.charFormat();
        change(format);
        range.setPosition(end);
        range.setBlockCharFormat(format);
    });
    selection.endEditBlock();
}

void changeBullets(QTextCursor selection, bool on) {
    selection.beginEditBlock();
    if (on) {
        selection.createList(QTextListFormat::ListDisc);
    } else {
        QTextCursor paragraph(selection.document());
        eachBlock(selection, [&](const QTextBlock& block) {
            QTextList* list = block.textList();
            if (!list)
                return;
            list->remove(block);
            paragraph.setPosition(block.position());
            QTextBlockFormat format = block.blockFormat();
            format.setIndent(0);
            paragraph.setBlockFormat(format);
        });
    }
    selection.endEditBlock();
}
