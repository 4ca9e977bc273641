#pragma once

#include <QString>
#include <QTextFormat>

class QTextDocument;

namespace richtext {

/// A twip is a twentieth of a point; the program's logical pixel is fifteen of them.
constexpr double twipsPerPixel = 15;

/// The property of a character format that keeps "\upN" (positive) or "\dnN" (negative) in half
/// points. It counts only where the format's vertical alignment says the same.
constexpr int CharacterOffset = QTextFormat::UserProperty + 2;

enum CharacterFlag : qint32 {
    Bold = 1,
    Italic = 2,
    Underline = 4,
    Strike = 8,
    Superscript = 16,
    Subscript = 32,
    Hidden = 64,
};

/// How characters look, in the numbers of the rich text that they stand in.
struct CharacterState {
    qint32 font = -1; ///< place in the font table; -1 for one that it lacks
    qint32 halfPoints = 24;
    qint32 colour = 0;    ///< place in the colour table
    qint32 highlight = 0; ///< likewise; 0 for none
    qint32 offset = 0;    ///< half points up
    qint32 flags = 0;     ///< CharacterFlag

    bool operator==(const CharacterState&) const = default;
};

/// How a paragraph is laid out, lengths in twips.
struct ParagraphState {
    qint32 alignment = 0; ///< a Qt::AlignmentFlag, 0 where none is told
    qint32 left = 0;
    qint32 right = 0;
    qint32 first = 0;
    qint32 before = 0;
    qint32 after = 0;
    qint32 lineSpacing = 0;
    qint32 lineMultiple = 0; ///< 1 where lineSpacing is in 240ths of a line
    qint32 direction = Qt::LayoutDirectionAuto;
    qint32 listStyle = 0; ///< a QTextListFormat::Style

    bool operator==(const ParagraphState&) const = default;
};

/// A list's level in a document (1, 2, ...) is a half inch of indent in rich text, nearly.
constexpr qint32 twipsPerListLevel = 720;
constexpr size_t deepestListLevel = 20;
size_t listLevel(qint32 leftIndent);

/// A paragraph's format. A list's paragraph is indented by its list alone.
QTextBlockFormat makeBlockFormat(const ParagraphState& state);

/// The same backwards; without the list.
ParagraphState paragraphState(const QTextBlockFormat& format);

/// The font family of what tells none.
QString usualFamily(const QTextDocument& document);

} // namespace richtext
