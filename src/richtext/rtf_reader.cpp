#include "richtext/rtf_reader.h"

#include "richtext/objects.h"
#include "richtext/rtf_parser.h"
#include "richtext/rtf_text.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <array>
#include <optional>
#include <unordered_map>

namespace richtext {

namespace {

// What one document may have of them, since a document's work grows with their square. Beyond that
// text is formatted as some other text is, and paragraphs are in no list.
constexpr size_t mostFormats = 4096;
constexpr int mostListItems = 3000;

struct BytesHash {
    template<typename State>
    size_t operator()(const State& state) const {
        static_assert(std::has_unique_object_representations_v<State>);
        return qHashBits(&state, sizeof state);
    }
};

/// Writes into a document at a cursor. An empty paragraph there takes the format of the text's
/// first; one with text keeps its own.
class DocumentSink : public TextSink {
public:
    explicit DocumentSink(const QTextCursor& at)
        : m_document(*at.document())
        , m_cursor(at)
        , m_isBetween(at.block().length() == 1)
        , m_isFirst(m_isBetween)
        , m_isJoined(!m_isBetween) {}
    void read(const QString& rtf);

    void addText(QStringView text) override;
    void endParagraph() override;
    void addObject(QStringView source, bool isPicture) override;

private:
    void startParagraph();
    void flushRun();
    void finishParagraph();
    void setList(const ParagraphState& paragraph);
    const QTextCharFormat& charFormat(const CharacterState& state);
    QTextCharFormat makeCharFormat(const CharacterState& state) const;
    const QTextBlockFormat& blockFormat(const ParagraphState& state);

    const QTextDocument& m_document;
    QTextCursor m_cursor;
    const RtfParser* m_parser = nullptr;

    QString m_run; ///< text not in the document yet, and how it looks
    CharacterState m_runState;
    const QTextCharFormat* m_runFormat = nullptr;
    ParagraphState m_paragraph; ///< as the current paragraph was begun
    bool m_isBetween;           ///< the paragraph that comes is not begun yet
    bool m_isFirst;             ///< it is the one that the cursor stands in
    bool m_isJoined;            ///< the current paragraph has text of its own

    std::unordered_map<CharacterState, QTextCharFormat, BytesHash> m_charFormats;
    std::unordered_map<ParagraphState, QTextBlockFormat, BytesHash> m_blockFormats;
    std::array<QTextList*, deepestListLevel + 1> m_lists{}; ///< going on, by level
    int m_listItems = 0;
};

void DocumentSink::read(const QString& rtf) {
    m_cursor.beginEditBlock();
    RtfParser parser(rtf, *this);
    m_parser = &parser;
    parser.parse();
    if (m_isFirst || !m_isBetween)
        finishParagraph();
    m_cursor.endEditBlock();
}

void DocumentSink::addText(QStringView text) {
    startParagraph();
    if (m_parser->characters() != m_runState || !m_runFormat) {
        flushRun();
        m_runState = m_parser->characters();
        m_runFormat = &charFormat(m_runState);
    }
    m_run += text;
}

void DocumentSink::endParagraph() {
    finishParagraph();
    m_isBetween = true;
}

void DocumentSink::addObject(QStringView source, bool isPicture) {
    startParagraph();
    flushRun();
    QTextCharFormat format = charFormat(m_parser->characters());
    format.setObjectType(isPicture ? PictureType : EmbeddedObjectType);
    format.setProperty(ObjectSource, source.toString());
    m_cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

/// Begins the paragraph that is to be written in, if it is not begun. Its format counts only when
/// it ends, but is mostly told before its text.
void DocumentSink::startParagraph() {
    if (!m_isBetween)
        return;
    m_paragraph = m_parser->paragraph();
    const QTextCharFormat& characters = charFormat(m_parser->characters());
    if (m_isFirst) {
        m_cursor.setBlockFormat(blockFormat(m_paragraph));
        m_cursor.setBlockCharFormat(characters);
    } else {
        m_cursor.insertBlock(blockFormat(m_paragraph), characters);
    }
    m_isFirst = false;
    m_isBetween = false;
}

void DocumentSink::flushRun() {
    if (m_run.isEmpty() || !m_runFormat)
        return;
    m_cursor.insertText(m_run, *m_runFormat);
    m_run.clear();
}

void DocumentSink::finishParagraph() {
    startParagraph();
    flushRun();
    if (m_isJoined) {
        m_isJoined = false;
        return;
    }
    const ParagraphState paragraph = m_parser->paragraph();
    if (paragraph != m_paragraph)
        m_cursor.setBlockFormat(blockFormat(paragraph));
    setList(paragraph);
}

/// Puts the paragraph into the list of its level that goes on, or begins one. A paragraph outside
/// lists ends them all, one of an outer level the inner ones.
void DocumentSink::setList(const ParagraphState& paragraph) {
    const size_t level = paragraph.listStyle == 0 ? 0 : listLevel(paragraph.left);
    std::fill(m_lists.begin() + static_cast<ptrdiff_t>(level) + 1, m_lists.end(), nullptr);
    if (level == 0 || ++m_listItems > mostListItems)
        return;
    QTextList*& list = m_lists[level];
    if (list && list->format().style() == paragraph.listStyle) {
        list->add(m_cursor.block());
    } else {
        QTextListFormat format;
        format.setStyle(static_cast<QTextListFormat::Style>(paragraph.listStyle));
        format.setIndent(static_cast<int>(level));
        list = m_cursor.createList(format);
    }
}

const QTextCharFormat& DocumentSink::charFormat(const CharacterState& state) {
    const auto found = m_charFormats.find(state);
    if (found != m_charFormats.end())
        return found->second;
    if (m_charFormats.size() == mostFormats)
        return m_charFormats.begin()->second;
    return m_charFormats.emplace(state, makeCharFormat(state)).first->second;
}

QTextCharFormat DocumentSink::makeCharFormat(const CharacterState& state) const {
    QTextCharFormat format;
    const QString family = m_parser->fontName(state.font);
    format.setFontFamilies({family.isEmpty() ? usualFamily(m_document) : family});
    format.setFontPointSize(state.halfPoints / 2.0);
    if (state.flags & Bold)
        format.setFontWeight(QFont::Bold);
    if (state.flags & Italic)
        format.setFontItalic(true);
    if (state.flags & Underline)
        format.setFontUnderline(true);
    if (state.flags & Strike)
        format.setFontStrikeOut(true);
    if ((state.flags & Superscript) || state.offset > 0)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if ((state.flags & Subscript) || state.offset < 0)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (state.offset != 0)
        format.setProperty(CharacterOffset, state.offset);
    if (const QColor colour = m_parser->colour(state.colour); colour.isValid())
        format.setForeground(colour);
    const QColor highlight = m_parser->colour(state.highlight);
    if (state.highlight != 0 && highlight.isValid())
        format.setBackground(highlight);
    return format;
}

const QTextBlockFormat& DocumentSink::blockFormat(const ParagraphState& state) {
    const auto found = m_blockFormats.find(state);
    if (found != m_blockFormats.end())
        return found->second;
    if (m_blockFormats.size() == mostFormats)
        return m_blockFormats.begin()->second;
    return m_blockFormats.emplace(state, makeBlockFormat(state)).first->second;
}

} // namespace

void readDocument(const QString& rtf, QTextDocument& document) {
    const bool hasUndo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    if (isRichText(rtf)) {
        document.clear();
        DocumentSink(QTextCursor(&document)).read(rtf);
    } else {
        document.setPlainText(cleanedLines(rtf));
    }
    document.setUndoRedoEnabled(hasUndo);
}

void insertFragment(QTextCursor& at, const QString& rtf) {
    at.beginEditBlock();
    at.removeSelectedText();
    if (isRichText(rtf))
        DocumentSink(at).read(rtf);
    else
        at.insertText(cleanedLines(rtf));
    at.endEditBlock();
}

} // namespace richtext
