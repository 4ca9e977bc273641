#include "richtext/html_reader.h"

#include "core/contrast.h"
#include "richtext/objects.h"
#include "richtext/pictures.h"
#include "richtext/rtf_writer.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

constexpr double pointsPerPixel = 0.75; // of the web's pixel, a 96th of an inch
constexpr double pixelsPerIndent = 40;
constexpr double numberIndent = -20;
constexpr double leastContrast = 1.5;
constexpr qint64 largestPictureFile = qint64{32} * 1024 * 1024;
const QString pictureSign(QChar::ObjectReplacementCharacter);

/// Reads nothing from anywhere.
class Page : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

/// The toolkit's lists know no start, but what stands before their numbers: there it is noted.
QString withNotedStarts(QString html) {
    static const QRegularExpression start(
        u"<ol\\b([^<>]*?)\\bstart\\s*=\\s*[\"']?\\s*(\\d{1,6})[\"']?"_s,
        QRegularExpression::CaseInsensitiveOption);
    return html.replace(start, u"<ol style=\"-qt-list-number-prefix:'\\2'\" \\1"_s);
}

/// The number of a list's item, where the list does not start with 1; 0 otherwise.
int notedNumber(const QTextList& list, const QTextBlock& block) {
    const int start = list.format().numberPrefix().toInt();
    return start > 1 ? start + list.itemNumber(block) : 0;
}

QString numberText(int number, QTextListFormat::Style style) {
    constexpr int letters = 26;
    const bool isLower = style == QTextListFormat::ListLowerAlpha;
    const bool isLetter = isLower || style == QTextListFormat::ListUpperAlpha;
    return isLetter && number <= letters ? QString(QChar((isLower ? u'a' : u'A') + number - 1))
                                         : QString::number(number);
}

double pointsOf(const QTextCharFormat& format, double usual) {
    if (format.hasProperty(QTextFormat::FontPixelSize))
        return format.intProperty(QTextFormat::FontPixelSize) * pointsPerPixel;
    constexpr double factors[] = {0.7, 0.8, 1, 1.2, 1.5, 2, 2.4};
    constexpr int middle = 2;
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment) + middle;
    const double points = format.fontPointSize() > 0 ? format.fontPointSize() : usual;
    return points * factors[std::clamp<int>(step, 0, std::size(factors) - 1)];
}

/// The first family that is a font's name.
QString familyOf(const QTextCharFormat& format, const QString& usual) {
    static const QStringList general{u"serif"_s,       u"sans-serif"_s,    u"cursive"_s,
                                     u"fantasy"_s,     u"system-ui"_s,     u"ui-sans-serif"_s,
                                     u"ui-serif"_s,    u"-apple-system"_s, u"BlinkMacSystemFont"_s,
                                     u"ui-monospace"_s};
    for (const QString& family : format.fontFamilies().toStringList()) {
        if (!family.isEmpty() && !general.contains(family, Qt::CaseInsensitive))
            return family;
    }
    return usual;
}

/// The picture that an address carries in itself or that lies in the file.
QByteArray pictureAt(const QString& address) {
    static const QRegularExpression data(u"^data:[^,]*?(;base64)?,"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    if (const auto match = data.match(address); match.hasMatch()) {
        const QByteArray content =
            QByteArray::fromPercentEncoding(address.mid(match.capturedEnd()).toLatin1());
        return match.captured(1).isEmpty() ? content : QByteArray::fromBase64(content);
    }
    QFile file(QUrl(address).toLocalFile());
    const QFileInfo info(file);
    return info.isFile() && info.size() <= largestPictureFile && file.open(QIODevice::ReadOnly)
               ? file.readAll()
               : QByteArray();
}

/// What stands behind a link's text for a person to read; empty where it is no address of the
/// world's.
QString addressShown(const QString& href) {
    static const QStringList known{u"http"_s, u"https"_s, u"ftp"_s, u"mailto"_s, u"tel"_s};
    const QString scheme = href.section(u':', 0, 0).toLower();
    if (!known.contains(scheme))
        return {};
    return scheme == u"mailto" || scheme == u"tel" ? href.section(u':', 1) : href;
}

/// Walks over the page and writes what it holds into a document of the dialect.
class PageReader {
public:
    PageReader(const QTextDocument& page, const HtmlGround& ground);
    QString read();

private:
    void addFrame(QTextFrame::iterator part);
    void addTable(const QTextTable& table);
    void addBlock(const QTextBlock& block);
    void startParagraph(const QTextBlock& block);
    void addNumber(int number, const QTextList& list, const QTextBlock& block);
    void addFragment(const QTextFragment& fragment);
    void addText(const QString& text);
    void addPicture(const QTextImageFormat& image);
    void follow(const QString& href);
    QTextCharFormat formatOf(const QTextCharFormat& format) const;

    const QTextDocument& m_page;
    const HtmlGround& m_ground;
    bool m_isOnePicture;
    QTextDocument m_document;
    QTextCursor m_at;
    QTextCharFormat m_format;
    bool m_isBegun = false;
    bool m_isInRow = false;
    bool m_isInCell = false; ///< which has something in it already
    QString m_href;          ///< of the link that is being read, and its text
    QString m_linkText;
    QHash<const QTextList*, QTextList*> m_lists;
};

PageReader::PageReader(const QTextDocument& page, const HtmlGround& ground)
    : m_page(page)
    , m_ground(ground)
    , m_isOnePicture(page.toPlainText().trimmed() == pictureSign)
    , m_at(&m_document) {
    m_document.setUndoRedoEnabled(false);
    QFont font(ground.family);
    font.setPointSizeF(ground.points);
    m_document.setDefaultFont(font);
}

QString PageReader::read() {
    addFrame(m_page.rootFrame()->begin());
    return writeDocument(m_document);
}

void PageReader::addFrame(QTextFrame::iterator part) {
    bool isBehindTable = false;
    while (!part.atEnd()) {
        QTextFrame* const frame = part.currentFrame();
        const auto* const table = qobject_cast<QTextTable*>(frame);
        const QTextBlock block = part.currentBlock();
        ++part;
        // The toolkit puts a paragraph before and behind a table that has none there.
        const bool isBeforeTable = !part.atEnd() && qobject_cast<QTextTable*>(part.currentFrame());
        if (table)
            addTable(*table);
        else if (frame)
            addFrame(frame->begin());
        else if (block.length() > 1 || !(isBehindTable || isBeforeTable))
            addBlock(block);
        isBehindTable = table != nullptr;
    }
}

/// A table inside a cell goes on in the row.
void PageReader::addTable(const QTextTable& table) {
    const bool isInside = m_isInRow;
    for (int row = 0; row < table.rows(); ++row) {
        m_isInRow = isInside;
        startParagraph(QTextBlock());
        m_isInRow = true;
        for (int column = 0; column < table.columns(); ++column) {
            m_format = {};
            if (column > 0)
                addText(u"\t"_s);
            m_isInCell = false;
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() == row && cell.column() == column)
                addFrame(cell.begin());
        }
        m_isInCell = true;
    }
    m_isInRow = isInside;
}

void PageReader::startParagraph(const QTextBlock& block) {
    if (m_isInRow) {
        if (m_isInCell)
            addText(u" "_s);
        return;
    }
    QTextBlockFormat format = block.isValid() ? block.blockFormat() : QTextBlockFormat();
    format.setObjectIndex(-1); // a list of the page's
    if (std::exchange(m_isBegun, true))
        m_at.insertBlock(format, QTextCharFormat());
    else
        m_at.setBlockFormat(format);
}

void PageReader::addBlock(const QTextBlock& block) {
    startParagraph(block);
    const QTextList* list = m_isInRow ? nullptr : block.textList();
    const int number = list ? notedNumber(*list, block) : 0;
    if (number > 0) {
        addNumber(number, *list, block);
    } else if (list) {
        QTextList*& own = m_lists[list];
        if (own)
            own->add(m_at.block());
        else
            own = m_at.createList(list->format());
    }
    for (auto it = block.begin(); !it.atEnd(); ++it)
        addFragment(it.fragment());
    follow({});
    m_isInCell = m_isInCell || block.length() > 1;
}

void PageReader::addNumber(int number, const QTextList& list, const QTextBlock& block) {
    QTextBlockFormat format = m_at.blockFormat();
    format.setLeftMargin(list.format().indent() * pixelsPerIndent);
    format.setTextIndent(numberIndent);
    m_at.setBlockFormat(format);
    m_format =
        formatOf(block.begin().atEnd() ? QTextCharFormat() : block.begin().fragment().charFormat());
    addText(numberText(number, list.format().style()) + u". "_s);
}

void PageReader::addFragment(const QTextFragment& fragment) {
    const QTextCharFormat format = fragment.charFormat();
    follow(format.isAnchor() ? format.anchorHref() : QString());
    m_format = formatOf(format);
    if (format.isImageFormat()) {
        for (int i = 0; i < fragment.length(); ++i)
            addPicture(format.toImageFormat());
    } else {
        m_linkText += fragment.text();
        addText(fragment.text());
    }
}

void PageReader::addText(const QString& text) {
    m_at.insertText(text, m_format);
}

void PageReader::addPicture(const QTextImageFormat& image) {
    QString group = pictureGroup(pictureAt(image.name()), QSizeF(image.width(), image.height()));
    if (group.isEmpty() && m_isOnePicture && !m_ground.picture.isNull())
        group = pictureGroup(m_ground.picture);
    if (group.isEmpty())
        return addText(image.stringProperty(QTextFormat::ImageAltText));
    QTextCharFormat format = m_format;
    format.setObjectType(PictureType);
    format.setProperty(ObjectSource, group);
    m_at.insertText(pictureSign, format);
}

/// What follows belongs to another link, or to none: the one that ends here gets its address,
/// unless it stands there already.
void PageReader::follow(const QString& href) {
    if (href == m_href)
        return;
    const QString shown = addressShown(std::exchange(m_href, href));
    const QString text = std::exchange(m_linkText, {}).trimmed();
    if (!shown.isEmpty() && text != shown && text + u'/' != shown &&
        !shown.endsWith(u"://"_s + text) && !shown.endsWith(u"://"_s + text + u'/'))
        addText(u" (%1)"_s.arg(shown));
}

QTextCharFormat PageReader::formatOf(const QTextCharFormat& format) const {
    QTextCharFormat own;
    own.setFontFamilies({familyOf(format, m_ground.family)});
    own.setFontPointSize(pointsOf(format, m_ground.points));
    own.setFontWeight(format.fontWeight() >= QFont::DemiBold ? QFont::Bold : QFont::Normal);
    own.setFontItalic(format.fontItalic());
    own.setFontUnderline(format.fontUnderline() && !format.isAnchor());
    own.setFontStrikeOut(format.fontStrikeOut());
    own.setVerticalAlignment(format.verticalAlignment());
    const QColor background = format.background().color();
    const bool isMarked = format.background().style() == Qt::SolidPattern &&
                          contrast(background, m_ground.paper) >= leastContrast;
    if (isMarked)
        own.setBackground(background);
    const QColor colour = format.foreground().color();
    if (format.foreground().style() == Qt::SolidPattern && !format.isAnchor() &&
        (isMarked || contrast(colour, m_ground.paper) >= leastContrast))
        own.setForeground(colour);
    return own;
}

} // namespace

QString rtfOfHtml(const QString& html, const HtmlGround& ground) {
    Page page;
    page.setUndoRedoEnabled(false);
    page.setHtml(withNotedStarts(html));
    return PageReader(page, ground).read();
}

} // namespace richtext
