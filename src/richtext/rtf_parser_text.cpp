// The parser's road of a character: from bytes, code units and \u to the text of a destination.

#include "richtext/code_pages.h"
#include "richtext/rtf_parser.h"
#include "richtext/rtf_text.h"

#include <algorithm>

namespace richtext {

namespace {

constexpr qsizetype longestMarker = 16;
constexpr qsizetype longestFontName = 64;
constexpr size_t mostFonts = 4096;
constexpr size_t mostColours = 4096;
constexpr qint32 greatestFontNumber = 65535;

} // namespace

void RtfParser::readText(QStringView text) {
    m_isGroupStart = false;
    if (m_skip > 0) {
        const qsizetype skipped = std::min<qsizetype>(m_skip, text.size());
        m_skip -= static_cast<qint32>(skipped);
        text = text.sliced(skipped);
    }
    if (!m_bytes.isEmpty())
        m_bytes += text.toLatin1();
    else if (!text.isEmpty())
        addText(text);
}

/// Where each character stood for a byte when the text became one of code units, it is one still.
void RtfParser::readHigh(QStringView text) {
    for (const QChar c : text) {
        if (c <= QChar(0xFF)) {
            readByte(static_cast<uchar>(c.unicode()));
        } else if (m_skip > 0) {
            --m_skip;
        } else {
            flushBytes();
            addCharacter(c.unicode());
        }
    }
    m_isGroupStart = false;
}

void RtfParser::readByte(uchar byte) {
    m_isGroupStart = false;
    if (m_skip > 0)
        --m_skip;
    else if (isMultiByte(m_state.codePage))
        m_bytes += static_cast<char>(byte);
    else
        addCharacter(decode(m_state.codePage, byte));
}

void RtfParser::flushBytes() {
    if (m_bytes.isEmpty())
        return;
    const QString text = decode(m_state.codePage, m_bytes);
    m_bytes.clear();
    addDecoded(text);
}

void RtfParser::readUnicode(qint32 number) {
    constexpr qint32 codeUnits = 0x10000;
    const qint32 code = number < 0 ? number + codeUnits : number;
    if (code < 0 || code > static_cast<qint32>(QChar::LastValidCodePoint)) {
        addCharacter(QChar::ReplacementCharacter);
    } else if (code < codeUnits) {
        addCharacter(static_cast<char16_t>(code));
    } else {
        const char16_t pair[] = {QChar::highSurrogate(static_cast<char32_t>(code)),
                                 QChar::lowSurrogate(static_cast<char32_t>(code))};
        addText({pair, 2});
    }
    m_skip = m_state.unicodeSkip;
}

void RtfParser::addDecoded(QStringView text) {
    if (isClean(text))
        addText(text);
    else if (const QString clean = cleaned(text); !clean.isEmpty())
        addText(clean);
}

bool RtfParser::isShown() const {
    return m_state.destination == Destination::Body && !(m_state.characters.flags & Hidden);
}

void RtfParser::addText(QStringView text) {
    switch (m_state.destination) {
    case Destination::Body:
        if (m_state.characters.flags & Hidden)
            break;
        if (m_cells > 0)
            flushCells(m_cells);
        m_sink.addText(text);
        break;
    case Destination::FontTable:
        addFontText(text);
        break;
    case Destination::ColourTable:
        addColourText(text);
        break;
    case Destination::Marker:
        m_marker += text.first(std::min(text.size(), longestMarker - m_marker.size()));
        break;
    default:
        break;
    }
}

/// A font's name; a semicolon ends its entry.
void RtfParser::addFontText(QStringView text) {
    for (const QChar c : text) {
        if (c != u';') {
            if (m_newFont.name.size() < longestFontName)
                m_newFont.name += c;
            continue;
        }
        const QString name = m_newFont.name.trimmed();
        if (name.isEmpty())
            continue;
        const qint32 number = m_newFont.number;
        const int codePage = m_newFont.codePage == 0 ? m_codePage : m_newFont.codePage;
        m_newFont = {};
        if (m_fonts.size() == mostFonts || number < 0 || number > greatestFontNumber)
            continue;
        m_fonts.push_back({number, codePage, name});
        const auto place = static_cast<size_t>(number);
        if (m_fontPlaces.size() <= place)
            m_fontPlaces.resize(place + 1);
        m_fontPlaces[place] = static_cast<qint32>(m_fonts.size());
    }
}

/// A semicolon ends a colour's entry; one without parts leaves the colour to the reader.
void RtfParser::addColourText(QStringView text) {
    for (const QChar c : text) {
        if (c != u';' || m_colours.size() == mostColours)
            continue;
        m_colours.push_back(m_hasNewColour ? QColor(m_newColour) : QColor());
        m_newColour = 0;
        m_hasNewColour = false;
    }
}

/// Writes the tabs of the cells that have ended.
void RtfParser::flushCells(qsizetype count) {
    m_cells = 0;
    if (count > 0)
        m_sink.addText(QString(count, u'\t'));
}

void RtfParser::endRow() {
    flushCells(m_cells - 1);
    endParagraph();
}

void RtfParser::endParagraph() {
    flushCells(m_cells);
    m_sink.endParagraph();
    m_hasMarker = false;
}

} // namespace richtext
