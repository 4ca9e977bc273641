#include "office/sheet_writer.h"

#include "office/paper.h"
#include "office/spreadsheet.h"
#include "office/text_width.h"
#include "office/xls_writer.h"
#include "office/xlsx_writer.h"
#include "store/engine/files.h"
#include "store/engine/value.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double DateWidth = 11; ///< of "30-Sep-2026", in characters

bool isTaken(QChar character) {
    const char16_t code = character.unicode();
    return (code >= u' ' && code < 0xFFFE) || code == u'\t' || code == u'\n';
}

/// A text with one kind of line break, and without what spreadsheets refuse.
QString cleanText(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    text.removeIf([](QChar character) { return !isTaken(character); });
    return text;
}

/// Cuts a text to the longest that a cell holds, between two characters.
QString cutText(const QString& text) {
    const qsizetype length =
        Sheet::LongestText - (text[Sheet::LongestText].isLowSurrogate() ? 1 : 0);
    return text.first(length);
}

double contentWidth(const SheetCell& cell) {
    if (const auto* number = std::get_if<double>(&cell.content))
        return textWidth(dao::numberText(*number), cell.looks & CellLook::Bold);
    if (const auto* text = std::get_if<QString>(&cell.content))
        return textWidth(*text, cell.looks & CellLook::Bold);
    return std::holds_alternative<QDate>(cell.content) ? DateWidth : 0;
}

/// The lines that a text takes in a column, with some room for words that do not divide.
int linesOfText(const QString& text, double width) {
    constexpr double forWords = 1.15;
    int lines = 0;
    for (const QStringView line : QStringView(text).split(u'\n'))
        lines +=
            std::max(1, static_cast<int>(std::ceil(forWords * textWidth(line, false) / width)));
    return lines;
}

} // namespace

QString PageLine::codes(QChar place) const {
    if (text.isEmpty())
        return {};
    QString line = u"&"_s + place;
    if (points > 0)
        line += u'&' + QString::number(points);
    if (underlined)
        line += u"&U"_s;
    return line + QString(text).replace(u'&', u"&&"_s);
}

Sheet::Sheet(QString name) : m_name(std::move(name)) {
    m_page.letterPaper = usesLetterPaper();
}

const SheetCell& Sheet::cell(int row, int column) const {
    static const SheetCell bare;
    const auto& cells = m_rows[static_cast<size_t>(row)];
    return static_cast<size_t>(column) < cells.size() ? cells[static_cast<size_t>(column)] : bare;
}

SheetCell& Sheet::cellToSet(int row, int column) {
    if (row >= rowCount())
        m_rows.resize(static_cast<size_t>(row) + 1);
    auto& cells = m_rows[static_cast<size_t>(row)];
    if (static_cast<size_t>(column) >= cells.size())
        cells.resize(static_cast<size_t>(column) + 1);
    m_columnCount = std::max(m_columnCount, column + 1);
    return cells[static_cast<size_t>(column)];
}

void Sheet::put(int row, int column, const CellContent& content) {
    SheetCell& cell = cellToSet(row, column);
    const auto* number = std::get_if<double>(&content);
    const bool isWord = number && !std::isfinite(*number); // "inf" and "nan" read as numbers
    cell.content = isWord ? CellContent(dao::numberText(*number)) : content;
    if (std::holds_alternative<QDate>(content))
        cell.looks |= CellLook::Dated;
    auto* text = std::get_if<QString>(&cell.content);
    if (!text)
        return;
    *text = cleanText(*text);
    if (text->size() > LongestText) {
        *text = cutText(*text);
        m_cutTexts += columnLetters(column) + QString::number(row + 1);
    }
    if (text->contains(u'\n'))
        cell.looks |= CellLook::Wrapped;
    if (text->isEmpty())
        cell.content = {};
}

void Sheet::addLooks(const CellArea& area, CellLooks looks) {
    for (int row = area.row; row < area.row + area.rows; ++row) {
        for (int column = area.column; column < area.column + area.columns; ++column)
            cellToSet(row, column).looks |= looks;
    }
}

void Sheet::fitColumn(int column) {
    constexpr double margin = 1;
    double widest = 0;
    for (int row = 0; row < rowCount(); ++row) {
        const double width = contentWidth(cell(row, column)) + margin;
        widest = std::max(widest, width);
        if (width > WidestFit)
            cellToSet(row, column).looks |= CellLook::Wrapped;
    }
    m_widths[column] = std::min(widest, WidestFit);
}

void Sheet::wrapColumn(int column) {
    for (int row = 0; row < rowCount(); ++row) {
        if (std::holds_alternative<QString>(cell(row, column).content))
            cellToSet(row, column).looks |= CellLook::Wrapped;
    }
}

int Sheet::linesOfRow(int row) const {
    constexpr double usualWidth = 8;
    int lines = 1;
    for (int column = 0; column < m_columnCount; ++column) {
        const SheetCell& each = cell(row, column);
        const auto* text = std::get_if<QString>(&each.content);
        if (text && each.looks & CellLook::Wrapped)
            lines = std::max(lines, linesOfText(*text, m_widths.value(column, usualWidth)));
    }
    return lines;
}

Sheet& Workbook::addSheet(const QString& name) {
    m_sheets.emplace_back(name);
    return m_sheets.back();
}

QStringList Workbook::cutTexts() const {
    QStringList cut;
    for (const Sheet& sheet : m_sheets) {
        for (const QString& cell : sheet.cutTexts())
            cut += sheet.name() + u": "_s + cell;
    }
    return cut;
}

bool isXlsxName(const QString& name) {
    return name.endsWith(u".xlsx"_s, Qt::CaseInsensitive);
}

void saveWorkbook(const Workbook& workbook, const QString& path) {
    dao::putFile(path, isXlsxName(path) ? xlsxContent(workbook) : xlsContent(workbook));
}
