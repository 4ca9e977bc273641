#include "richtext/rtf_document.h"

#include "richtext/rtf_text.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

constexpr int BoxPadding = 144; ///< between a box and what is in it, left and right
constexpr int CellPadding = 70; ///< the same of a table's cell
const QString CellBorders = u"\\clbrdrt\\brdrs\\brdrw10\\clbrdrl\\brdrs\\brdrw10"
                            "\\clbrdrb\\brdrs\\brdrw10\\clbrdrr\\brdrs\\brdrw10"_s;

QString picture(const QImage& image, const QSize& twips) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return u"{\\pict\\pngblip\\picw%1\\pich%2\\picwgoal%3\\pichgoal%4 "_s.arg(image.width())
               .arg(image.height())
               .arg(twips.width())
               .arg(twips.height()) +
           QString::fromLatin1(bytes.toHex()) + u'}';
}

/// Whether a row has room on one page, whatever its cells' widths, and so is not to be divided.
bool isShort(const TableRow& row) {
    constexpr qsizetype most = 1500; // characters
    return std::all_of(row.cells.begin(), row.cells.end(),
                       [](const TableCell& cell) { return cell.text.size() < most; });
}

/// A control word with its number.
void appendWord(QString& rtf, QStringView word, int number) {
    std::array<char, 12> digits{};
    const char* const end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    rtf += word;
    rtf += QLatin1StringView(digits.data(), end);
}

/// Whether the cells of two rows stand in the same way, whatever is in them.
bool hasSameShape(const TableRow& a, const TableRow& b) {
    return a.height == b.height && isShort(a) == isShort(b) &&
           std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                      [](const TableCell& one, const TableCell& other) {
                          return one.width == other.width && one.ground == other.ground &&
                                 one.hasBorder == other.hasBorder;
                      });
}

void appendLook(QString& rtf, const TextLook& look) {
    appendWord(rtf, u"\\fs", 2 * look.size);
    if (look.bold)
        rtf += u"\\b";
}

} // namespace

void appendLines(QString& rtf, const QString& text) {
    if (isClean(text)) // one line, as most are
        return appendText(rtf, text);
    const QStringList lines = cleanedLines(text).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            rtf += u"\\line ";
        appendText(rtf, lines[i]);
    }
}

int RtfDocument::colour(QRgb rgb) {
    qsizetype place = m_colours.indexOf(rgb);
    if (place < 0) {
        place = m_colours.size();
        m_colours += rgb;
    }
    return static_cast<int>(place) + 1;
}

QString RtfDocument::headOf(const TextLook& look) {
    QString rtf;
    if (look.centred)
        rtf += u"\\qc";
    appendLook(rtf, look);
    if (look.colour)
        appendWord(rtf, u"\\cf", colour(*look.colour));
    return rtf + u' ';
}

void RtfDocument::appendHead(QString& rtf, const TextLook& look) {
    if (m_head.isEmpty() || look != m_look) {
        m_look = look;
        m_head = headOf(look);
    }
    rtf += m_head;
}

void RtfDocument::beginParagraph(const TextLook& look) {
    m_body += u"\\pard\\plain";
    if (std::exchange(m_breaksPage, false))
        m_body += u"\\pagebb";
    appendHead(m_body, look);
    if (!m_boxes.isEmpty())
        m_body += std::exchange(m_boxes, {});
}

void RtfDocument::addText(const QString& text, const TextLook& look) {
    for (const QString& line : cleanedLines(text).split(u'\n')) {
        beginParagraph(look);
        appendText(m_body, line);
        m_body += u"\\par\n";
    }
}

void RtfDocument::addCell(QString& rtf, const TableCell& cell) {
    rtf += u"\\pard\\plain\\intbl";
    appendHead(rtf, cell.look);
    appendLines(rtf, cell.text);
    rtf += u"\\cell\n";
}

/// How the cells of a row stand.
QString RtfDocument::definitionOf(const TableRow& row) {
    QString rtf = u"\\trowd\\trpaddt30\\trpaddft3\\trpaddb30\\trpaddfb3\\trleft0"_s;
    appendWord(rtf, u"\\trgaph", CellPadding);
    if (isShort(row))
        rtf += u"\\trkeep";
    if (row.height > 0)
        appendWord(rtf, u"\\trrh", row.height);
    int right = 0;
    for (const TableCell& cell : row.cells) {
        right += cell.width;
        if (row.height > 0)
            rtf += u"\\clvertalc";
        if (cell.hasBorder)
            rtf += CellBorders;
        if (cell.ground)
            appendWord(rtf, u"\\clcbpat", colour(*cell.ground));
        appendWord(rtf, u"\\cellx", right);
    }
    return rtf + u'\n';
}

QString RtfDocument::rowsOf(const Table& table) {
    QString rtf;
    QString definition;
    const TableRow* defined = nullptr;
    for (const TableRow& row : table) {
        if (!defined || !hasSameShape(*defined, row))
            definition = definitionOf(row);
        defined = &row;
        rtf += definition;
        for (const TableCell& cell : row.cells)
            addCell(rtf, cell);
        rtf += u"\\row\n";
    }
    // Nothing ends with a table: a line as low as can be goes to the same page.
    return rtf += u"\\pard\\plain\\sl-20\\slmult0\\fs2\\par\n";
}

/// A table that is to begin a page, or has boxes beside it, needs a paragraph for that before it.
void RtfDocument::addTable(const Table& table) {
    if (m_breaksPage || !m_boxes.isEmpty()) {
        beginParagraph({.size = 1});
        m_body += u"\\par\n";
    }
    m_body += rowsOf(table);
}

void RtfDocument::addBox(const QRect& place, const QString& content) {
    constexpr int firstBox = 1026;
    m_boxes += u"{\\shp{\\*\\shpinst\\shpleft%1\\shptop%2\\shpright%3\\shpbottom%4"_s.arg(place.x())
                   .arg(place.y())
                   .arg(place.x() + place.width())
                   .arg(place.y() + place.height());
    m_boxes += u"\\shpfhdr0\\shpbxmargin\\shpbymargin\\shpwr3\\shpfblwtxt0\\shplockanchor"
               "\\shpz%1\\shplid%2{\\sp{\\sn shapeType}{\\sv 202}}{\\sp{\\sn lineColor}{\\sv 0}}"
               "{\\sp{\\sn fFilled}{\\sv 0}}{\\shptxt "_s.arg(m_boxCount)
                   .arg(firstBox + m_boxCount);
    m_boxes += content + u"\\par}}}"_s;
    ++m_boxCount;
}

void RtfDocument::addTextBox(const QRect& place, const QString& text, const TextLook& look) {
    QString content = u"\\pard\\plain"_s;
    appendLook(content, look);
    content += u' ';
    appendLines(content, text);
    addBox(place, content);
}

void RtfDocument::addPictureBox(const QRect& place, const QImage& image) {
    const QSize size(place.width() - 2 * BoxPadding, place.height() - BoxPadding);
    addBox(place, u"\\pard\\plain "_s + picture(image, size));
}

QByteArray RtfDocument::source() const {
    QString head = u"{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\n"
                   "{\\colortbl ;"_s;
    for (const QRgb rgb : m_colours)
        head += u"\\red%1\\green%2\\blue%3;"_s.arg(qRed(rgb)).arg(qGreen(rgb)).arg(qBlue(rgb));
    head += u"}\n\\paperw%1\\paperh%2"_s.arg(m_paper.size.width()).arg(m_paper.size.height());
    head += u"\\margl%1\\margt%2\\margr%3\\margb%4\\gutter%5"_s.arg(m_paper.margins.left())
                .arg(m_paper.margins.top())
                .arg(m_paper.margins.right())
                .arg(m_paper.margins.bottom())
                .arg(m_paper.gutter);
    if (m_paper.size.width() > m_paper.size.height())
        head += u"\\landscape"_s;
    head +=
        u"\\sectd\\headery%1\\footery%2"_s.arg(m_paper.headerDistance).arg(m_paper.footerDistance);
    head += m_pageHeading.isEmpty() ? u"\n"_s : u"\\titlepg{\\header "_s + m_pageHeading + u"}\n"_s;
    QByteArray source = head.toLatin1();
    source += m_body.toLatin1();
    return source += "}\n";
}

} // namespace richtext
