#include "richtext/rtf_writer.h"

#include "richtext/objects.h"
#include "richtext/rtf_text.h"
#include "richtext/text_state.h"

#include <QHash>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

// A size that no format tells.
constexpr double usualPointSize = 10;

/// Writes a part of a document, paragraph by paragraph; the tables of fonts and colours fill on the
/// way and are put in front at the end.
class Writer {
public:
    explicit Writer(const QTextDocument& document) : m_document(document) {}
    QString write(int from, int to);

private:
    /// What a character format says, and the source of the objects that it is of.
    struct Look {
        CharacterState state;
        QString source;
        bool isImage = false; ///< of a web page: it has no source
    };

    void writeParagraph(const QTextBlock& block, int from, int to);
    void writeParagraphHead(const QTextBlock& block, const CharacterState& first);
    void writeListMarker(const QTextList& list);
    void writeRun(const Look& look, QStringView text);
    void changeTo(const CharacterState& wanted);
    void writeText(QStringView text);

    /// A control word, to which a text behind it needs a blank.
    void word(QStringView name) {
        m_body += u'\\';
        m_body += name;
        m_isBehindWord = true;
    }
    void word(QStringView name, qint32 number) {
        word(name);
        char digits[16];
        const char* const end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
        m_body += QLatin1String(digits, end);
    }
    void wordUnlessZero(QStringView name, qint32 number) {
        if (number != 0)
            word(name, number);
    }
    void literal(QStringView text) {
        m_body += text;
        m_isBehindWord = false;
    }

    ParagraphState paragraphOf(const QTextBlock& block);
    const Look& lookOf(const QTextFragment& fragment);
    CharacterState makeState(const QTextCharFormat& format);
    QString fontName(const QTextCharFormat& format) const;
    qint32 fontPlace(const QTextCharFormat& format);
    qint32 colourPlace(const QBrush& brush);
    QString head() const;

    const QTextDocument& m_document;
    QString m_body;
    bool m_isBehindWord = false;
    CharacterState m_state;
    QStringList m_fonts;
    QList<QRgb> m_colours;
    QHash<int, Look> m_looks;                ///< by the format's index in the document
    QHash<int, ParagraphState> m_paragraphs; ///< likewise
    QHash<const QTextList*, int> m_listNumbers;
};

QString Writer::write(int from, int to) {
    const QTextBlock end = m_document.findBlock(to).next();
    m_body.reserve(qsizetype(to - from) * 2);
    for (QTextBlock block = m_document.findBlock(from); block.isValid() && block != end;
         block = block.next())
        writeParagraph(block, from, to);
    literal(u"}");
    return head() + m_body;
}

QString Writer::head() const {
    QString text = u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl"_s;
    for (qsizetype i = 0; i < m_fonts.size(); ++i) {
        text += u"{\\f%1\\fnil "_s.arg(i);
        appendText(text, m_fonts.at(i));
        text += u";}"_s;
    }
    text += u"}\r\n{\\colortbl ;"_s;
    for (const QRgb colour : m_colours)
        text +=
            u"\\red%1\\green%2\\blue%3;"_s.arg(qRed(colour)).arg(qGreen(colour)).arg(qBlue(colour));
    return text + u"}\r\n"_s;
}

void Writer::writeParagraph(const QTextBlock& block, int from, int to) {
    bool isBegun = false;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const int begin = std::max(from, fragment.position());
        const int end = std::min(to, fragment.position() + fragment.length());
        if (begin >= end)
            continue;
        const Look& look = lookOf(fragment);
        if (look.isImage)
            continue;
        if (!isBegun)
            writeParagraphHead(block, look.state);
        isBegun = true;
        changeTo(look.state);
        const QString text = fragment.text();
        writeRun(look, QStringView(text).sliced(begin - fragment.position(), end - begin));
    }
    if (!isBegun) {
        QTextCharFormat format = block.charFormat();
        format.clearBackground();
        const CharacterState state = makeState(format);
        writeParagraphHead(block, state);
        changeTo(state);
    }
    if (m_state.highlight != 0)
        literal(u"\\highlight0 ");
    literal(u"\r\n\\par ");
}

void Writer::writeParagraphHead(const QTextBlock& block, const CharacterState& first) {
    ParagraphState paragraph = paragraphOf(block);
    word(u"pard");
    word(u"plain");
    word(u"f", first.font);
    word(u"fs", first.halfPoints);
    m_state = {};
    m_state.font = first.font;
    m_state.halfPoints = first.halfPoints;
    if (const QTextList* list = block.textList()) {
        writeListMarker(*list);
        const int level = std::clamp(list->format().indent(), 1, int(deepestListLevel));
        paragraph.left = level * twipsPerListLevel;
        paragraph.first = -twipsPerListLevel / 2;
    }
    switch (paragraph.alignment & Qt::AlignHorizontal_Mask) {
    case Qt::AlignRight:
        word(u"qr");
        break;
    case Qt::AlignHCenter:
        word(u"qc");
        break;
    case Qt::AlignJustify:
        word(u"qj");
        break;
    case Qt::AlignLeft:
        word(u"ql");
        break;
    default:
        break;
    }
    if (paragraph.direction != Qt::LayoutDirectionAuto)
        word(paragraph.direction == Qt::RightToLeft ? u"rtlpar" : u"ltrpar");
    wordUnlessZero(u"fi", paragraph.first);
    wordUnlessZero(u"li", paragraph.left);
    wordUnlessZero(u"ri", paragraph.right);
    wordUnlessZero(u"sb", paragraph.before);
    wordUnlessZero(u"sa", paragraph.after);
    if (paragraph.lineMultiple == 1) {
        word(u"sl", paragraph.lineSpacing);
        word(u"slmult1");
    }
}

/// The marker as text, for readers that know no lists, and the list's style for those that do.
void Writer::writeListMarker(const QTextList& list) {
    struct Numbering {
        QTextListFormat::Style style;
        QStringView word;
    };
    constexpr Numbering numberings[] = {{QTextListFormat::ListDecimal, u"pndec"},
                                        {QTextListFormat::ListLowerAlpha, u"pnlcltr"},
                                        {QTextListFormat::ListUpperAlpha, u"pnucltr"},
                                        {QTextListFormat::ListLowerRoman, u"pnlcrm"},
                                        {QTextListFormat::ListUpperRoman, u"pnucrm"}};
    const auto* const numbering =
        std::find_if(std::begin(numberings), std::end(numberings),
                     [&](const Numbering& entry) { return entry.style == list.format().style(); });
    if (numbering == std::end(numberings)) {
        literal(u"{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\'95}}");
        return;
    }
    const int number = ++m_listNumbers[&list];
    literal(u"{\\pntext %1.\\tab}{\\*\\pn\\pnlvlbody\\%2\\pnstart1\\pnindent360"
            "{\\pntxta.}}"_s.arg(QString::number(number), numbering->word));
}

void Writer::writeRun(const Look& look, QStringView text) {
    if (look.source.isEmpty()) {
        writeText(text);
    } else {
        for (qsizetype i = 0; i < text.size(); ++i)
            literal(look.source);
    }
}

/// Writes what is different about the characters that follow. The highlight comes last, since it
/// always carries its own blank.
void Writer::changeTo(const CharacterState& wanted) {
    const auto flag = [&](CharacterFlag bit, QStringView on, QStringView off) {
        if ((wanted.flags ^ m_state.flags) & bit)
            word(wanted.flags & bit ? on : off);
    };
    if (wanted.font != m_state.font)
        word(u"f", wanted.font);
    if (wanted.halfPoints != m_state.halfPoints)
        word(u"fs", wanted.halfPoints);
    if (wanted.colour != m_state.colour)
        word(u"cf", wanted.colour);
    flag(Bold, u"b", u"b0");
    flag(Italic, u"i", u"i0");
    flag(Underline, u"ul", u"ulnone");
    flag(Strike, u"strike", u"strike0");
    constexpr qint32 scripts = Superscript | Subscript;
    if (((wanted.flags ^ m_state.flags) & scripts) || wanted.offset != m_state.offset) {
        if (wanted.flags & scripts)
            word(wanted.flags & Superscript ? u"super" : u"sub");
        else if (wanted.offset != 0)
            word(wanted.offset > 0 ? u"up" : u"dn", std::abs(wanted.offset));
        else
            word(u"nosupersub");
    }
    if (wanted.highlight != m_state.highlight) {
        word(u"highlight", wanted.highlight);
        literal(u" ");
    }
    m_state = wanted;
}

void Writer::writeText(QStringView text) {
    if (m_isBehindWord && !beginsWithEscape(text))
        literal(u" ");
    appendText(m_body, text);
    m_isBehindWord = false;
}

const Writer::Look& Writer::lookOf(const QTextFragment& fragment) {
    const int index = fragment.charFormatIndex();
    const auto found = m_looks.constFind(index);
    if (found != m_looks.constEnd())
        return *found;
    const QTextCharFormat format = fragment.charFormat();
    const bool isObject =
        format.objectType() == EmbeddedObjectType || format.objectType() == PictureType;
    return *m_looks.insert(index,
                           {.state = makeState(format),
                            .source = isObject ? format.stringProperty(ObjectSource) : QString(),
                            .isImage = format.isImageFormat()});
}

ParagraphState Writer::paragraphOf(const QTextBlock& block) {
    const int index = block.blockFormatIndex();
    const auto found = m_paragraphs.constFind(index);
    return found != m_paragraphs.constEnd()
               ? *found
               : *m_paragraphs.insert(index, paragraphState(block.blockFormat()));
}

CharacterState Writer::makeState(const QTextCharFormat& format) {
    CharacterState state;
    state.font = fontPlace(format);
    double points = format.fontPointSize();
    if (points <= 0)
        points = m_document.defaultFont().pointSizeF();
    state.halfPoints = static_cast<qint32>(std::lround(2 * (points > 0 ? points : usualPointSize)));
    state.colour = colourPlace(format.foreground());
    state.highlight = colourPlace(format.background());
    if (format.fontWeight() >= QFont::DemiBold)
        state.flags |= Bold;
    if (format.fontItalic())
        state.flags |= Italic;
    if (format.fontUnderline())
        state.flags |= Underline;
    if (format.fontStrikeOut())
        state.flags |= Strike;
    const int offset = format.intProperty(CharacterOffset);
    const auto script = format.verticalAlignment();
    if (script == QTextCharFormat::AlignSuperScript)
        offset > 0 ? state.offset = offset : state.flags |= Superscript;
    else if (script == QTextCharFormat::AlignSubScript)
        offset < 0 ? state.offset = offset : state.flags |= Subscript;
    return state;
}

/// The family's name, without what would end its entry in the table.
QString Writer::fontName(const QTextCharFormat& format) const {
    static const QRegularExpression special(u"[\\\\{};\\x00-\\x1F]"_s);
    const QStringList families = format.fontFamilies().toStringList();
    const QString name =
        families.isEmpty() ? QString() : QString(families.first()).remove(special).trimmed();
    return name.isEmpty() ? usualFamily(m_document) : name;
}

qint32 Writer::fontPlace(const QTextCharFormat& format) {
    const QString family = fontName(format);
    qsizetype place = m_fonts.indexOf(family);
    if (place < 0) {
        place = m_fonts.size();
        m_fonts += family;
    }
    return static_cast<qint32>(place);
}

/// 0 for what is left to the reader.
qint32 Writer::colourPlace(const QBrush& brush) {
    if (brush.style() == Qt::NoBrush)
        return 0;
    const QRgb colour = brush.color().rgb();
    qsizetype place = m_colours.indexOf(colour);
    if (place < 0) {
        place = m_colours.size();
        m_colours += colour;
    }
    return static_cast<qint32>(place) + 1;
}

} // namespace

QString writeDocument(const QTextDocument& document) {
    return Writer(document).write(0, document.characterCount() - 1);
}

QString writeFragment(const QTextCursor& selection) {
    return Writer(*selection.document())
        .write(selection.selectionStart(), selection.selectionEnd());
}

} // namespace richtext
