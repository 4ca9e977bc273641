#include "office/ods_reader.h"

#include "office/zip_archive.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString OdsOffice = u"urn:oasis:names:tc:opendocument:xmlns:office:1.0"_s;
const QString OdsTable = u"urn:oasis:names:tc:opendocument:xmlns:table:1.0"_s;
const QString OdsStyle = u"urn:oasis:names:tc:opendocument:xmlns:style:1.0"_s;
const QString OdsText = u"urn:oasis:names:tc:opendocument:xmlns:text:1.0"_s;
const QString OdsCalc = u"urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0"_s;

/// Goes to the next element of this name inside the current one, past all others.
bool goToChild(QXmlStreamReader& xml, QStringView name) {
    while (xml.readNextStartElement()) {
        if (xml.name() == name)
            return true;
        xml.skipCurrentElement();
    }
    return false;
}

int readCount(const QXmlStreamReader& xml, const QString& space, const QString& name) {
    return std::max(1, xml.attributes().value(space, name).toInt());
}

/// A paragraph as it reads: runs of white space are one blank, further ones have their element.
QString readParagraph(QXmlStreamReader& xml) {
    QString text;
    for (xml.readNext(); !xml.isEndElement() && !xml.atEnd(); xml.readNext()) {
        if (xml.isCharacters()) {
            static const QRegularExpression space(u"[ \\t\\r\\n]+"_s);
            text += xml.text().toString().replace(space, u" "_s);
            continue;
        }
        if (!xml.isStartElement())
            continue;
        const int blanks = readCount(xml, OdsText, u"c"_s);
        const QStringView name = xml.name();
        if (name == u"span" || name == u"a") {
            text += readParagraph(xml);
            continue;
        }
        if (name == u"s")
            text += QString(std::min(blanks, SheetCells::LargestColumn), u' ');
        else if (name == u"tab")
            text += u'\t';
        else if (name == u"line-break")
            text += u'\n';
        xml.skipCurrentElement();
    }
    return text;
}

/// The paragraphs of a cell, a line each; what else it has, such as comments, is none of its text.
QString readParagraphs(QXmlStreamReader& xml) {
    QStringList lines;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"p" && xml.namespaceUri() == OdsText)
            lines += readParagraph(xml);
        else
            xml.skipCurrentElement();
    }
    return lines.join(u'\n');
}

/// Days of a duration such as PT08H30M00S.
double daysOfDuration(const QString& text) {
    static const QRegularExpression form(u"^PT([0-9]+)H([0-9]+)M([0-9.,]+)S$"_s);
    const QRegularExpressionMatch match = form.match(text);
    constexpr double minutes = 60;
    constexpr double hoursOfDay = 24;
    const double seconds = match.captured(3).replace(u',', u'.').toDouble();
    return (match.captured(1).toDouble() +
            (match.captured(2).toDouble() + seconds / minutes) / minutes) /
           hoursOfDay;
}

/// The styles of tables that do not show.
QStringList readHidingStyles(QXmlStreamReader& xml) {
    QStringList hiding;
    while (xml.readNextStartElement()) {
        const QString style = xml.attributes().value(OdsStyle, u"name"_s).toString();
        for (; xml.readNextStartElement(); xml.skipCurrentElement()) {
            if (xml.attributes().value(OdsTable, u"display"_s) == u"false")
                hiding += style;
        }
    }
    return hiding;
}

class OdsSheet {
public:
    explicit OdsSheet(SheetCells& cells) : m_cells(cells) {}

    /// Rows may stand in groups.
    void readRows(QXmlStreamReader& xml) {
        while (xml.readNextStartElement()) {
            if (xml.name() == u"table-row")
                readRow(xml);
            else if (xml.name() == u"table-header-rows" || xml.name() == u"table-row-group" ||
                     xml.name() == u"table-rows")
                readRows(xml);
            else
                xml.skipCurrentElement();
        }
    }

private:
    void readRow(QXmlStreamReader& xml) {
        const int repeated = readCount(xml, OdsTable, u"number-rows-repeated"_s);
        int column = 0;
        bool hasCells = false;
        while (xml.readNextStartElement()) {
            const int count = std::min(readCount(xml, OdsTable, u"number-columns-repeated"_s),
                                       SheetCells::LargestColumn);
            hasCells = readCell(xml, column, count) || hasCells;
            column = std::min(column + count, SheetCells::LargestColumn);
        }
        const int end =
            std::min(m_row, SheetCells::LargestRow) + std::min(repeated, SheetCells::LargestRow);
        for (int row = m_row + 1; hasCells && row < std::min(end, SheetCells::LargestRow); ++row)
            m_cells.copyRow(m_row, row);
        m_row = end;
    }

    /// Answers whether there is anything in it.
    bool readCell(QXmlStreamReader& xml, int column, int count) {
        const QXmlStreamAttributes attributes = xml.attributes();
        const auto value = [&](const QString& name) {
            return attributes.value(OdsOffice, name).toString();
        };
        const QString type = value(u"value-type"_s);
        const QString text = readParagraphs(xml);
        if (attributes.value(OdsCalc, u"value-type"_s) == u"error" ||
            (type.isEmpty() && text.isEmpty()))
            return false;
        for (int each = column; each < column + count; ++each) {
            if (type == u"float" || type == u"percentage" || type == u"currency")
                m_cells.setNumber(m_row, each, value(u"value"_s).toDouble());
            else if (type == u"date")
                m_cells.setIsoMoment(m_row, each, value(u"date-value"_s));
            else if (type == u"time")
                m_cells.setMoment(m_row, each, CellKind::Time,
                                  daysOfDuration(value(u"time-value"_s)), false);
            else if (type == u"boolean")
                m_cells.setTruth(m_row, each, value(u"boolean-value"_s) == u"true");
            else
                m_cells.setText(m_row, each, text.isEmpty() ? value(u"string-value"_s) : text);
        }
        return true;
    }

    SheetCells& m_cells;
    int m_row = 0;
};

} // namespace

bool readOds(const QByteArray& archive, SheetCells& cells) {
    const auto content = readZipPart(archive, u"content.xml"_s);
    if (!content)
        return false;
    QXmlStreamReader xml(*content);
    xml.readNextStartElement();
    QStringList hiding;
    while (xml.readNextStartElement() && xml.name() != u"body") {
        if (xml.name() == u"automatic-styles")
            hiding = readHidingStyles(xml);
        else
            xml.skipCurrentElement();
    }
    if (!goToChild(xml, u"spreadsheet"))
        return false;
    while (goToChild(xml, u"table")) {
        if (hiding.contains(xml.attributes().value(OdsTable, u"style-name"_s))) {
            xml.skipCurrentElement();
            continue;
        }
        OdsSheet(cells).readRows(xml);
        return !xml.hasError();
    }
    return false;
}
