#pragma once

#include <QStringView>

namespace richtext {

/// What the reader does at a control word of the Rich Text Format (version 1.9). Words that do the
/// same share an entry and differ by the value beside it.
enum class Word : quint8 {
    Unknown,

    // What the group that they open holds.
    SkippedGroup,   ///< nothing that is shown
    StructureGroup, ///< other groups; its own text is not shown
    ShownGroup,     ///< text, although the group is marked as one that may be left out
    FontTable,
    ColourTable,
    Object,
    Picture,
    ListMarker, ///< a paragraph's bullet or number as text
    Bullets,    ///< how a paragraph's bullet or number looks

    // Text.
    Symbol, ///< value: the character
    Paragraph,
    Cell,
    Row,
    Unicode,
    UnicodeSkip,
    Binary,

    // Characters.
    Flag, ///< value: the bits of CharacterState::flags, off where the number is 0
    FlagOff,
    Plain,
    Font,
    FontSize,
    Colour,
    Highlight,
    Raised,
    Lowered,

    // Paragraphs.
    ParagraphDefaults,
    Alignment, ///< value: a Qt::AlignmentFlag
    LeftIndent,
    RightIndent,
    FirstIndent,
    SpaceBefore,
    SpaceAfter,
    LineSpacing,
    LineMultiple,
    Direction, ///< value: a Qt::LayoutDirection
    ListStyle, ///< value: a QTextListFormat::Style, 0 for none

    // The document and its tables.
    AnsiCodePage,
    CodePage, ///< value: the code page
    DefaultFont,
    FontCharset,
    FontCodePage,
    Red,
    Green,
    Blue,

    // Inside objects and pictures, which the reader keeps as they are.
    ObjectClass,
    ObjectData,
    PictureKind, ///< value: a PictureKind
    PictureWidth,
    PictureHeight,
    PictureScaleX,
    PictureScaleY,
};

enum PictureKind : qint32 { OtherPicture, PngPicture, JpegPicture, BitmapPicture };

struct WordMeaning {
    Word word = Word::Unknown;
    qint32 value = 0;
};

/// The hash of a control word, letter by letter from `noLetters` on.
constexpr quint32 noLetters = 2166136261U;
constexpr quint32 hashLetter(quint32 hash, char16_t letter) {
    return (hash ^ letter) * 16777619U;
}

/// What a control word means; its hash is computed while it is scanned.
WordMeaning meaningOf(QStringView word, quint32 hash);

} // namespace richtext
