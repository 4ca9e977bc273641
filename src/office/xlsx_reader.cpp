#include "office/xlsx_reader.h"

#include "office/number_format.h"
#include "office/spreadsheet.h"
#include "office/zip_archive.h"

#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What one part of a workbook says about another.
struct PartLink {
    QString id;
    QString kind;   ///< the last word of its type, such as "worksheet"
    QString target; ///< the other part
};

QString attributeOf(const QXmlStreamReader& xml, const QString& name) {
    return xml.attributes().value(name).toString();
}

/// The links of a part; those of the archive where it has no name.
QList<PartLink> readPartLinks(const QByteArray& archive, const QString& part) {
    const QString folder = part.contains(u'/') ? part.section(u'/', 0, -2) + u'/' : QString();
    const QString name = part.section(u'/', -1);
    QList<PartLink> links;
    QXmlStreamReader xml(
        readZipPart(archive, folder + u"_rels/"_s + name + u".rels"_s).value_or(QByteArray()));
    xml.readNextStartElement();
    for (; xml.readNextStartElement(); xml.skipCurrentElement()) {
        const QString target = attributeOf(xml, u"Target"_s);
        links.append({attributeOf(xml, u"Id"_s), attributeOf(xml, u"Type"_s).section(u'/', -1),
                      target.startsWith(u'/') ? target.mid(1) : QDir::cleanPath(folder + target)});
    }
    return links;
}

template<typename Matches>
QString linkedPart(const QList<PartLink>& links, Matches matches) {
    const auto link = std::find_if(links.begin(), links.end(), matches);
    return link == links.end() ? QString() : link->target;
}

QString partOfKind(const QList<PartLink>& links, const QString& kind) {
    return linkedPart(links, [&kind](const PartLink& link) { return link.kind == kind; });
}

/// Characters that XML has no place for stand as _x000D_.
QString unescapedText(const QString& text) {
    if (!text.contains(u"_x"))
        return text;
    static const QRegularExpression escape(u"_x([0-9A-Fa-f]{4})_"_s);
    QString plain;
    qsizetype place = 0;
    for (const QRegularExpressionMatch& match : escape.globalMatch(text)) {
        plain += QStringView(text).sliced(place, match.capturedStart() - place);
        plain += QChar(match.captured(1).toUShort(nullptr, 16));
        place = match.capturedEnd();
    }
    return plain + text.sliced(place);
}

/// A text with all its runs, but without what tells how it is spoken.
QString readRuns(QXmlStreamReader& xml) {
    QString text;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"t")
            text += unescapedText(xml.readElementText(QXmlStreamReader::SkipChildElements));
        else if (xml.name() == u"r")
            text += readRuns(xml);
        else
            xml.skipCurrentElement();
    }
    return text;
}

struct XlsxWorkbook {
    QStringList shown; ///< the ids of the sheets' links, as the next
    QStringList hidden;
    bool from1904 = false;
};

XlsxWorkbook readXlsxWorkbook(const QByteArray& part) {
    XlsxWorkbook book;
    QXmlStreamReader xml(part);
    for (xml.readNext(); !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"workbookPr") {
            const QString from = attributeOf(xml, u"date1904"_s);
            book.from1904 = from == u"1" || from == u"true";
        }
        if (xml.name() != u"sheet")
            continue;
        const bool isHidden =
            attributeOf(xml, u"state"_s).contains(u"hidden"_s, Qt::CaseInsensitive);
        for (const QXmlStreamAttribute& each : xml.attributes()) {
            if (each.name() == u"id" && !each.namespaceUri().isEmpty())
                (isHidden ? book.hidden : book.shown) += each.value().toString();
        }
    }
    return book;
}

QStringList readSharedTexts(const QByteArray& part) {
    QStringList texts;
    QXmlStreamReader xml(part);
    xml.readNextStartElement();
    while (xml.readNextStartElement())
        texts += readRuns(xml);
    return texts;
}

NumberFormats readXlsxFormats(const QByteArray& part) {
    NumberFormats formats;
    QXmlStreamReader xml(part);
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        const bool areCodes = xml.name() == u"numFmts";
        const bool areCells = xml.name() == u"cellXfs";
        if (!areCodes && !areCells) {
            xml.skipCurrentElement();
            continue;
        }
        for (; xml.readNextStartElement(); xml.skipCurrentElement()) {
            const int id = attributeOf(xml, u"numFmtId"_s).toInt();
            if (areCodes)
                formats.codes[id] = attributeOf(xml, u"formatCode"_s);
            else
                formats.cells += id;
        }
    }
    return formats;
}

class XlsxSheet {
public:
    XlsxSheet(const QStringList& texts, const NumberFormats& formats, SheetCells& cells)
        : m_texts(texts), m_formats(formats), m_cells(cells) {}

    /// False where the part is damaged.
    bool read(const QByteArray& part) {
        QXmlStreamReader xml(part);
        xml.readNextStartElement();
        while (xml.readNextStartElement()) {
            if (xml.name() == u"sheetData")
                readRows(xml);
            else
                xml.skipCurrentElement();
        }
        return !xml.hasError();
    }

private:
    void readRows(QXmlStreamReader& xml) {
        m_row = -1;
        while (xml.readNextStartElement()) {
            const int number = attributeOf(xml, u"r"_s).toInt();
            m_row = number > 0 ? number - 1 : m_row + 1;
            m_column = -1;
            while (xml.readNextStartElement())
                readCell(xml);
        }
    }

    void readCell(QXmlStreamReader& xml) {
        static const QRegularExpression digits(u"[0-9]+$"_s);
        const QString place = attributeOf(xml, u"r"_s).remove(digits);
        m_column = place.isEmpty() ? m_column + 1 : columnOfLetters(place);
        const QString type = attributeOf(xml, u"t"_s);
        const qsizetype style = attributeOf(xml, u"s"_s).toInt();
        QString value;
        while (xml.readNextStartElement()) {
            if (xml.name() == u"v")
                value = xml.readElementText();
            else if (xml.name() == u"is")
                value = readRuns(xml);
            else
                xml.skipCurrentElement();
        }
        put(type, value, style);
    }

    void put(const QString& type, const QString& value, qsizetype style) {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (type == u"s")
            m_cells.setText(m_row, m_column, m_texts.value(static_cast<qsizetype>(number)));
        else if (type == u"str")
            m_cells.setText(m_row, m_column, unescapedText(value));
        else if (type == u"inlineStr")
            m_cells.setText(m_row, m_column, value);
        else if (type == u"b")
            m_cells.setTruth(m_row, m_column, number != 0);
        else if (type == u"d")
            m_cells.setIsoMoment(m_row, m_column, value);
        else if (type != u"e" && isNumber)
            m_formats.put(m_cells, m_row, m_column, number, style);
    }

    const QStringList& m_texts;
    const NumberFormats& m_formats;
    SheetCells& m_cells;
    int m_row = -1;
    int m_column = -1;
};

} // namespace

bool readXlsx(const QByteArray& archive, SheetCells& cells) {
    const QString bookPart = partOfKind(readPartLinks(archive, {}), u"officeDocument"_s);
    const auto bookBytes = readZipPart(archive, bookPart);
    if (!bookBytes)
        return false;
    const XlsxWorkbook book = readXlsxWorkbook(*bookBytes);
    const QList<PartLink> links = readPartLinks(archive, bookPart);
    const auto part = [&](const QString& kind) {
        return readZipPart(archive, partOfKind(links, kind)).value_or(QByteArray());
    };
    QString sheetPart;
    for (const QString& id : book.shown + book.hidden) { // some may be charts
        sheetPart = linkedPart(links, [&](const PartLink& each) {
            return each.id == id && each.kind == u"worksheet";
        });
        if (!sheetPart.isEmpty())
            break;
    }
    const auto sheet = readZipPart(archive, sheetPart);
    if (!sheet)
        return false;
    NumberFormats formats = readXlsxFormats(part(u"styles"_s));
    formats.from1904 = book.from1904;
    return XlsxSheet(readSharedTexts(part(u"sharedStrings"_s)), formats, cells).read(*sheet);
}
