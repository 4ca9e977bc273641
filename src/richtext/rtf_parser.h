#pragma once

#include "richtext/rtf_scanner.h"
#include "richtext/text_state.h"

#include <QColor>
#include <QList>
#include <QString>

#include <vector>

namespace richtext {

/// What takes the content of a rich text, piece by piece and in its order.
class TextSink {
public:
    virtual ~TextSink() = default;
    /// A piece of a paragraph's text; tabs and U+2028 are the only control characters in it.
    virtual void addText(QStringView text) = 0;
    /// The end of a paragraph. The last one of a text may lack it.
    virtual void endParagraph() = 0;
    /// An object or a picture; `source` is its group, brackets included.
    virtual void addObject(QStringView source, bool isPicture) = 0;
};

/// Reads rich text, of any program and of any quality, and tells a sink what it shows. One linear
/// pass, without recursion; groups nested beyond a bound are read as part of the group around them.
class RtfParser {
public:
    struct FontEntry {
        qint32 number = 0;
        int codePage = 0;
        QString name;
    };

    RtfParser(QStringView rtf, TextSink& sink) : m_scanner(rtf), m_sink(sink) {}
    void parse();

    // What is in force at the sink's call.
    const CharacterState& characters() const { return m_state.characters; }
    ParagraphState paragraph() const;

    /// The name of a font in the table, empty where it lacks it.
    QString fontName(qint32 place) const;
    /// A colour of the table; an invalid one where that lacks it or leaves it to the reader.
    QColor colour(qint32 place) const;

private:
    enum class Destination : quint8 { Body, Structure, FontTable, ColourTable, Marker, Bullets };

    /// What a group inherits, and what is in force again behind it.
    struct Group {
        CharacterState characters;
        ParagraphState paragraph;
        qint32 unicodeSkip = 1;
        int codePage = 0;
        Destination destination = Destination::Body;
    };

    void openGroup();
    void closeGroup();
    void leaveDestination(Destination left);
    void readSymbol();
    void readWord();
    bool openDestination(Word word);
    bool readTextWord(WordMeaning meaning);
    bool readCharacterWord(WordMeaning meaning);
    bool readParagraphWord(WordMeaning meaning);
    void readTableWord(WordMeaning meaning);
    void setFlags(qint32 flags, bool on);
    void setFont(qint32 number);
    void setPlain();
    void keepObject(bool isPicture);

    void readText(QStringView text);
    void readHigh(QStringView text);
    void readByte(uchar byte);
    void readUnicode(qint32 number);
    void flushBytes();
    void addDecoded(QStringView text);
    void addCharacter(char16_t character) { addDecoded({&character, 1}); }
    void addText(QStringView text);
    void addFontText(QStringView text);
    void addColourText(QStringView text);
    bool isShown() const;
    void flushCells(qsizetype count);
    void endRow();
    void endParagraph();

    Scanner m_scanner;
    TextSink& m_sink;
    Group m_state;
    std::vector<Group> m_groups;
    qsizetype m_deeper = 0; ///< groups open beyond the bound

    bool m_isGroupStart = false; ///< nothing but \* since the bracket
    bool m_isIgnorable = false;  ///< \* has stood there
    qsizetype m_groupStart = 0;

    int m_codePage = 1252;
    qint32 m_defaultFont = 0;
    std::vector<FontEntry> m_fonts;
    std::vector<qint32> m_fontPlaces; ///< by a font's number: its place + 1, 0 for none
    FontEntry m_newFont;
    std::vector<QColor> m_colours;
    QRgb m_newColour = 0;
    bool m_hasNewColour = false;

    QByteArray m_bytes;    ///< of a code page in which one may need the next
    qint32 m_skip = 0;     ///< characters that stand for the \u in front of them
    qsizetype m_cells = 0; ///< ended, with nothing behind them yet
    qsizetype m_objects = 0;
    QString m_marker;
    bool m_hasMarker = false;
    qint32 m_bulletStyle = 0;
};

/// Whether a text is rich text at all.
bool isRichText(QStringView text);

} // namespace richtext
