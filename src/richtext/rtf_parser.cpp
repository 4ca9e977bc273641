#include "richtext/rtf_parser.h"

#include "richtext/code_pages.h"

#include <QTextListFormat>

#include <algorithm>

namespace richtext {

namespace {

// No program nests as deep, or makes as many objects and fonts; a text that does is not worth the
// memory.
constexpr size_t deepestGroup = 500;
constexpr qsizetype mostObjects = 10000;
constexpr qint32 greatestHalfPoints = 3276;
constexpr qint32 greatestTwips = 31680;

/// The style of a list by what stands in front of one of its paragraphs.
qint32 styleOfMarker(const QString& marker) {
    for (const QChar c : marker) {
        if (c.isDigit())
            return QTextListFormat::ListDecimal;
        if (marker.size() > 1 && c >= u'a' && c <= u'z')
            return c == u'i' ? QTextListFormat::ListLowerRoman : QTextListFormat::ListLowerAlpha;
        if (marker.size() > 1 && c >= u'A' && c <= u'Z')
            return c == u'I' ? QTextListFormat::ListUpperRoman : QTextListFormat::ListUpperAlpha;
    }
    return QTextListFormat::ListDisc;
}

} // namespace

bool isRichText(QStringView text) {
    return text.startsWith(u"{\\rtf");
}

void RtfParser::parse() {
    m_state.codePage = m_codePage;
    for (;;) {
        const Token token = m_scanner.next();
        if (token == Token::Text) {
            readText(m_scanner.text());
        } else if (token == Token::High) {
            readHigh(m_scanner.text());
        } else if (token == Token::Byte) {
            readByte(m_scanner.byte());
        } else {
            if (!m_bytes.isEmpty())
                flushBytes();
            if (token == Token::Word)
                readWord();
            else if (token == Token::Open)
                openGroup();
            else if (token == Token::Symbol)
                readSymbol();
            else if (token == Token::Close)
                closeGroup();
            else
                break;
            // What stands behind the bracket that closes it all is no text.
            if (m_groups.empty())
                break;
        }
    }
}

ParagraphState RtfParser::paragraph() const {
    ParagraphState paragraph = m_state.paragraph;
    if (m_hasMarker && paragraph.listStyle == 0)
        paragraph.listStyle = styleOfMarker(m_marker);
    return paragraph;
}

QString RtfParser::fontName(qint32 place) const {
    return place >= 0 && static_cast<size_t>(place) < m_fonts.size()
               ? m_fonts[static_cast<size_t>(place)].name
               : QString();
}

QColor RtfParser::colour(qint32 place) const {
    return place >= 0 && static_cast<size_t>(place) < m_colours.size()
               ? m_colours[static_cast<size_t>(place)]
               : QColor();
}

void RtfParser::openGroup() {
    m_skip = 0;
    if (m_groups.size() < deepestGroup)
        m_groups.push_back(m_state);
    else
        ++m_deeper;
    m_isGroupStart = true;
    m_isIgnorable = false;
    m_groupStart = m_scanner.start();
}

void RtfParser::closeGroup() {
    m_skip = 0;
    m_isGroupStart = false;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    if (m_groups.empty())
        return;
    const Destination left = m_state.destination;
    m_state = m_groups.back();
    m_groups.pop_back();
    if (left == Destination::FontTable)
        addFontText(u";");
    if (left != m_state.destination)
        leaveDestination(left);
}

void RtfParser::leaveDestination(Destination left) {
    if (left == Destination::FontTable) {
        setFont(m_defaultFont);
    } else if (left == Destination::Bullets) {
        m_state.paragraph.listStyle = m_bulletStyle;
    }
}

void RtfParser::readSymbol() {
    const char16_t symbol = m_scanner.symbol();
    if (symbol == u'*') {
        m_isIgnorable = m_isGroupStart;
        return;
    }
    m_isGroupStart = false;
    switch (symbol) {
    case u'\\':
    case u'{':
    case u'}':
        readText({&symbol, 1});
        break;
    case u'~':
        addCharacter(QChar::Nbsp);
        break;
    case u'-':
        addCharacter(QChar::SoftHyphen);
        break;
    case u'_':
        addCharacter(0x2011);
        break;
    case u'\t':
        addCharacter(symbol);
        break;
    case u'\r':
    case u'\n':
        if (isShown())
            endParagraph();
        break;
    default:
        break;
    }
}

void RtfParser::readWord() {
    const WordMeaning meaning = m_scanner.meaning();
    m_skip = 0;
    if (openDestination(meaning.word)) {
        m_isGroupStart = false;
        return;
    }
    const bool isUnknownGroup = m_isGroupStart && m_isIgnorable;
    m_isGroupStart = false;
    if (isUnknownGroup)
        m_scanner.skipGroup();
    else if (!readTextWord(meaning) && !readCharacterWord(meaning) && !readParagraphWord(meaning))
        readTableWord(meaning);
}

/// Answers whether the word says what its group holds.
bool RtfParser::openDestination(Word word) {
    switch (word) {
    case Word::SkippedGroup:
        m_scanner.skipGroup();
        return true;
    case Word::StructureGroup:
        m_state.destination = Destination::Structure;
        return true;
    case Word::ShownGroup:
        m_state.destination = Destination::Body;
        return true;
    case Word::FontTable:
        m_state.destination = Destination::FontTable;
        m_newFont = {};
        return true;
    case Word::ColourTable:
        m_state.destination = Destination::ColourTable;
        return true;
    case Word::Object:
        keepObject(false);
        return true;
    case Word::Picture:
        keepObject(true);
        return true;
    case Word::ListMarker:
        m_state.destination = Destination::Marker;
        m_hasMarker = true;
        m_marker.clear();
        return true;
    case Word::Bullets:
        m_state.destination = Destination::Bullets;
        m_bulletStyle = 0;
        return true;
    default:
        return false;
    }
}

void RtfParser::keepObject(bool isPicture) {
    const bool isWhole = m_scanner.skipGroup() && m_isGroupStart;
    const bool isWanted =
        m_state.destination == Destination::Body || m_state.destination == Destination::Structure;
    if (!isWhole || !isWanted || (m_state.characters.flags & Hidden) || ++m_objects > mostObjects)
        return;
    flushCells(m_cells);
    m_sink.addObject(m_scanner.textFrom(m_groupStart, m_scanner.position() + 1), isPicture);
}

bool RtfParser::readTextWord(WordMeaning meaning) {
    switch (meaning.word) {
    case Word::Symbol:
        addCharacter(static_cast<char16_t>(meaning.value));
        return true;
    case Word::Paragraph:
        if (isShown())
            endParagraph();
        return true;
    case Word::Cell:
        m_cells += isShown();
        return true;
    case Word::Row:
        if (isShown())
            endRow();
        return true;
    case Word::Unicode:
        readUnicode(m_scanner.number());
        return true;
    case Word::UnicodeSkip:
        m_state.unicodeSkip = std::clamp(m_scanner.numberOr(1), 0, 255);
        return true;
    default:
        return false;
    }
}

bool RtfParser::readCharacterWord(WordMeaning meaning) {
    CharacterState& characters = m_state.characters;
    switch (meaning.word) {
    case Word::Flag:
        setFlags(meaning.value, m_scanner.numberOr(1) != 0);
        return true;
    case Word::FlagOff:
        setFlags(meaning.value, false);
        return true;
    case Word::Plain:
        setPlain();
        return true;
    case Word::Font:
        setFont(m_scanner.number());
        return true;
    case Word::FontSize:
        characters.halfPoints = std::clamp(m_scanner.numberOr(24), 1, greatestHalfPoints);
        return true;
    case Word::Colour:
        characters.colour = std::max(0, m_scanner.number());
        return true;
    case Word::Highlight:
        characters.highlight = std::max(0, m_scanner.number());
        return true;
    case Word::Raised:
        characters.flags &= ~(Superscript | Subscript);
        characters.offset =
            std::clamp(m_scanner.numberOr(6), -greatestHalfPoints, greatestHalfPoints);
        return true;
    case Word::Lowered:
        characters.flags &= ~(Superscript | Subscript);
        characters.offset =
            -std::clamp(m_scanner.numberOr(6), -greatestHalfPoints, greatestHalfPoints);
        return true;
    default:
        return false;
    }
}

void RtfParser::setFlags(qint32 flags, bool on) {
    CharacterState& characters = m_state.characters;
    if (flags & (Superscript | Subscript)) {
        characters.flags &= ~(Superscript | Subscript);
        characters.offset = 0;
    }
    characters.flags = on ? characters.flags | flags : characters.flags & ~flags;
}

void RtfParser::setPlain() {
    m_state.characters = {};
    setFont(m_defaultFont);
}

void RtfParser::setFont(qint32 number) {
    if (m_state.destination == Destination::FontTable) {
        m_newFont = {.number = number, .codePage = 0, .name = {}};
        return;
    }
    const bool isInTable = number >= 0 && static_cast<size_t>(number) < m_fontPlaces.size();
    const qint32 place = isInTable ? m_fontPlaces[static_cast<size_t>(number)] - 1 : -1;
    m_state.characters.font = place;
    m_state.codePage = place < 0 ? m_codePage : m_fonts[static_cast<size_t>(place)].codePage;
}

bool RtfParser::readParagraphWord(WordMeaning meaning) {
    ParagraphState& paragraph = m_state.paragraph;
    const qint32 twips = std::clamp(m_scanner.number(), -greatestTwips, greatestTwips);
    switch (meaning.word) {
    case Word::ParagraphDefaults:
        paragraph = {};
        return true;
    case Word::Alignment:
        paragraph.alignment = meaning.value;
        return true;
    case Word::LeftIndent:
        paragraph.left = twips;
        return true;
    case Word::RightIndent:
        paragraph.right = twips;
        return true;
    case Word::FirstIndent:
        paragraph.first = twips;
        return true;
    case Word::SpaceBefore:
        paragraph.before = std::max(0, twips);
        return true;
    case Word::SpaceAfter:
        paragraph.after = std::max(0, twips);
        return true;
    case Word::LineSpacing:
        paragraph.lineSpacing = std::max(0, twips);
        return true;
    case Word::LineMultiple:
        paragraph.lineMultiple = m_scanner.numberOr(1) == 1;
        return true;
    case Word::Direction:
        paragraph.direction = meaning.value;
        return true;
    case Word::ListStyle:
        m_bulletStyle = meaning.value;
        return true;
    default:
        return false;
    }
}

void RtfParser::readTableWord(WordMeaning meaning) {
    const auto part = [&] { return static_cast<uint>(std::clamp(m_scanner.number(), 0, 255)); };
    switch (meaning.word) {
    case Word::AnsiCodePage:
        m_codePage = knownCodePage(m_scanner.number());
        m_state.codePage = m_codePage;
        break;
    case Word::CodePage:
        m_codePage = meaning.value;
        m_state.codePage = m_codePage;
        break;
    case Word::DefaultFont:
        m_defaultFont = m_scanner.number();
        break;
    case Word::FontCharset:
        m_newFont.codePage = codePageOfCharset(m_scanner.number(), m_codePage);
        m_state.codePage = m_newFont.codePage;
        break;
    case Word::FontCodePage:
        m_newFont.codePage = knownCodePage(m_scanner.number());
        m_state.codePage = m_newFont.codePage;
        break;
    case Word::Red:
        m_newColour = (m_newColour & 0x00FFFF) | part() << 16;
        m_hasNewColour = true;
        break;
    case Word::Green:
        m_newColour = (m_newColour & 0xFF00FF) | part() << 8;
        m_hasNewColour = true;
        break;
    case Word::Blue:
        m_newColour = (m_newColour & 0xFFFF00) | part();
        m_hasNewColour = true;
        break;
    default:
        break;
    }
}

} // namespace richtext
