#include "richtext/documents.h"

#include "richtext/objects.h"
#include "richtext/text_state.h"

#include <QDebug>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <array>

using namespace Qt::StringLiterals;

namespace test {

namespace {

QString properties(const QTextFormat& format) {
    QString text;
    const QMap<int, QVariant> all = format.properties();
    for (auto it = all.begin(); it != all.end(); ++it) {
        if (it.key() != QTextFormat::ObjectIndex)
            QDebug(&text).nospace() << ' ' << Qt::hex << it.key() << '=' << it.value();
    }
    return text;
}

class Generator {
public:
    Generator(QTextDocument& document, quint32 seed) : m_cursor(&document), m_random(seed) {}

    void fill() {
        for (int paragraph = below(12); paragraph >= 0; --paragraph) {
            addParagraph();
            if (oneIn(4))
                addList();
        }
    }

private:
    int below(int bound) { return m_random.bounded(bound); }
    bool oneIn(int bound) { return below(bound) == 0; }
    double pixels() { return (1 + below(1440)) / richtext::twipsPerPixel; }
    QColor colour() { return QColor(below(4) * 85, below(2) * 255, below(2) * 128); }

    QTextCharFormat charFormat() {
        QTextCharFormat format;
        format.setFontFamilies({std::array{u"Arial"_s, u"Comic Sans MS"_s,
                                           u"\u5b8b\u4f53 \u00c9"_s}[size_t(below(3))]});
        format.setFontPointSize(8 + below(20) / 2.0);
        if (oneIn(4))
            format.setFontWeight(QFont::Bold);
        if (oneIn(4))
            format.setFontItalic(true);
        if (oneIn(4))
            format.setFontUnderline(true);
        if (oneIn(8))
            format.setFontStrikeOut(true);
        if (oneIn(4))
            format.setForeground(colour());
        if (oneIn(6)) {
            const bool isUp = oneIn(2);
            format.setVerticalAlignment(isUp ? QTextCharFormat::AlignSuperScript
                                             : QTextCharFormat::AlignSubScript);
            if (oneIn(2))
                format.setProperty(richtext::CharacterOffset, isUp ? 6 : -6);
        }
        return format;
    }

    QTextBlockFormat blockFormat() {
        QTextBlockFormat format;
        if (oneIn(3))
            format.setAlignment(std::array{Qt::AlignRight, Qt::AlignHCenter, Qt::AlignJustify,
                                           Qt::AlignLeft}[static_cast<size_t>(below(4))]);
        if (oneIn(4))
            format.setRightMargin(pixels());
        if (oneIn(4))
            format.setTopMargin(pixels());
        if (oneIn(4))
            format.setBottomMargin(pixels());
        if (oneIn(6))
            format.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
        if (oneIn(10))
            format.setLayoutDirection(Qt::RightToLeft);
        return format;
    }

    QString text() {
        static const QString parts[] = {
            u"Starter: "_s,    u"fractions"_s, u" "_s,          u"\\b {not} bold"_s, u"\t"_s,
            u"caf\u00e9 "_s,   u"\u20ac5"_s,   u"\u2028"_s,     u"\u00a0"_s,         u"\u00ad-"_s,
            u"\u4f60\u597d"_s, u"1"_s,         u"\U0001f600"_s, u";'80"_s,           u"\u2011"_s,
        };
        QString made;
        for (int i = below(4); i >= 0; --i)
            made += parts[below(int(std::size(parts)))];
        return made;
    }

    /// Begins a paragraph, the first time the one that is there already.
    void beginParagraph(const QTextBlockFormat& block, const QTextCharFormat& format) {
        if (m_isFirst) {
            m_cursor.setBlockFormat(block);
            m_cursor.setBlockCharFormat(format);
        } else {
            m_cursor.insertBlock(block, format);
        }
        m_isFirst = false;
    }

    void addParagraph() {
        QTextBlockFormat block = blockFormat();
        if (oneIn(4)) {
            block.setLeftMargin(pixels());
            block.setTextIndent(oneIn(2) ? -pixels() : pixels());
        }
        beginParagraph(block, charFormat());
        addRuns();
    }

    void addRuns() {
        for (int run = below(5); run > 0; --run) {
            QTextCharFormat format = charFormat();
            if (oneIn(4))
                format.setBackground(colour());
            if (oneIn(10)) {
                format.setObjectType(oneIn(2) ? richtext::EmbeddedObjectType
                                              : richtext::PictureType);
                format.setProperty(richtext::ObjectSource,
                                   format.objectType() == richtext::PictureType
                                       ? u"{\\pict\\bin3 }{\\\\pngblip 8950}"_s
                                       : u"{\\object\\objemb{\\*\\objdata 0{1}}}"_s);
                m_cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
            } else {
                m_cursor.insertText(text(), format);
            }
        }
    }

    /// A list with lists of other levels in it; what stands around it is in none.
    void addList() {
        static constexpr QTextListFormat::Style styles[] = {
            QTextListFormat::ListDisc,       QTextListFormat::ListDecimal,
            QTextListFormat::ListLowerAlpha, QTextListFormat::ListUpperAlpha,
            QTextListFormat::ListLowerRoman, QTextListFormat::ListUpperRoman};
        const int style = below(6);
        std::array<QTextList*, 3> lists{};
        for (int item = below(6); item >= 0; --item) {
            const auto level = static_cast<size_t>(below(3));
            std::fill(lists.begin() + static_cast<ptrdiff_t>(level) + 1, lists.end(), nullptr);
            beginParagraph(blockFormat(), charFormat());
            addRuns();
            if (lists[level]) {
                lists[level]->add(m_cursor.block());
                continue;
            }
            QTextListFormat format;
            format.setStyle(styles[(size_t(style) + level) % std::size(styles)]);
            format.setIndent(static_cast<int>(level) + 1);
            lists[level] = m_cursor.createList(format);
        }
        addParagraph();
    }

    QTextCursor m_cursor;
    QRandomGenerator m_random;
    bool m_isFirst = true;
};

} // namespace

QString describe(const QTextDocument& document) {
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        text += u"paragraph"_s + properties(block.blockFormat());
        if (QTextList* const list = block.textList())
            text += u" list %1 of level %2, item %3"_s.arg(list->format().style())
                        .arg(list->format().indent())
                        .arg(list->itemNumber(block));
        if (block.begin().atEnd())
            text += u" empty"_s + properties(block.charFormat());
        text += u'\n';
        for (auto it = block.begin(); !it.atEnd(); ++it)
            text += u"  \""_s + it.fragment().text() + u"\""_s +
                    properties(it.fragment().charFormat()) + u'\n';
    }
    return text;
}

void generate(QTextDocument& document, quint32 seed) {
    Generator(document, seed).fill();
}

QString inDialect(const QString& body) {
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil "
           u"Courier;}}\r\n"
           "{\\colortbl "
           ";\\red255\\green255\\blue0;\\red0\\green255\\blue0;\\red255\\green0\\blue0;}"
           "\r\n\\pard\\plain\\f0\\fs20 "_s +
           body + u"\r\n\\par }"_s;
}

} // namespace test
