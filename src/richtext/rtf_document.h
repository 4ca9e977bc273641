#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QMargins>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace richtext {

/// Twips a point and an inch.
inline constexpr int TwipsPerPoint = 20;
inline constexpr int TwipsPerInch = 1440;

/// The paper of a document, in twips. A paper that is wider than high lies across.
struct Paper {
    QSize size;
    QMargins margins;
    int gutter = 0;
    int headerDistance = TwipsPerInch / 2;
    int footerDistance = TwipsPerInch / 2;

    QSize usable() const {
        return {size.width() - margins.left() - margins.right() - gutter,
                size.height() - margins.top() - margins.bottom()};
    }
};

struct TextLook {
    int size = 12; ///< points
    bool bold = false;
    bool centred = false;
    std::optional<QRgb> colour = {};

    bool operator==(const TextLook&) const = default;
};

struct TableCell {
    QString text; ///< its lines are divided by '\n'
    int width;    ///< twips
    TextLook look = {};
    std::optional<QRgb> ground = {};
    bool hasBorder = true;
};

struct TableRow {
    QList<TableCell> cells;
    int height = 0; ///< twips, at least; its texts stand in the middle of it. 0: as needed
};
using Table = QList<TableRow>;

/// A document for a word processor, written from its beginning to its end as Rich Text Format
/// (version 1.9.1: \trowd, \shp, \pict), which every word processor opens.
class RtfDocument {
public:
    explicit RtfDocument(const Paper& paper) : m_paper(paper) {}

    const Paper& paper() const { return m_paper; }
    void setPaper(const Paper& paper) { m_paper = paper; }

    /// What follows stands on a page of its own.
    void newPage() { m_breaksPage = true; }
    /// Paragraphs, one for each line of the text.
    void addText(const QString& text, const TextLook& look);
    void addTable(const Table& table);
    /// A row that stands at the head of every page but the first, over a table that goes on there.
    /// As the head of the page, since not every word processor reads a row's own mark for that.
    void setPageHeading(const TableRow& row) { m_pageHeading = rowsOf({row}); }
    /// A framed box over the page; `place` in twips from the margins of the page on which the next
    /// text stands.
    void addTextBox(const QRect& place, const QString& text, const TextLook& look);
    /// A picture in such a box, as large as the box is, less its frame's padding.
    void addPictureBox(const QRect& place, const QImage& picture);

    /// The bytes of the file.
    QByteArray source() const;

private:
    void addBox(const QRect& place, const QString& content);
    QString rowsOf(const Table& table);
    void addCell(QString& rtf, const TableCell& cell);
    QString headOf(const TextLook& look);
    void appendHead(QString& rtf, const TextLook& look);
    void beginParagraph(const TextLook& look);
    QString definitionOf(const TableRow& row);
    int colour(QRgb rgb);

    Paper m_paper;
    QString m_body;
    QString m_pageHeading;
    TextLook m_look; ///< of the last paragraph
    QString m_head;  ///< how it was written
    QString m_boxes; ///< that wait for a paragraph to be tied to
    QList<QRgb> m_colours;
    int m_boxCount = 0;
    bool m_breaksPage = false;
};

/// Adds lines of text to rich text, as lines of one paragraph.
void appendLines(QString& rtf, const QString& text);

} // namespace richtext
